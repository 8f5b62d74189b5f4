// The one setting of the program: the connection text of the database, in the user's settings.
#pragma once

#include "platform/settings.h"
#include <optional>

namespace database {

// Returns the stored text; std::nullopt if there is none yet, as on the first run.
std::optional<QString> storedConnection(const platform::Settings &settings);
platform::Status storeConnection(const platform::Settings &settings, const QString &connectionString);

} // namespace database
