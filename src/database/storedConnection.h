// The one setting of the program: the text of its connection to the database, in the user's settings store.
#pragma once

#include "platform/settings.h"
#include <optional>

namespace database {

// The stored text; nothing where there is none yet, which marks a first run.
std::optional<QString> storedConnection(const platform::Settings &settings);
platform::Status storeConnection(const platform::Settings &settings, const QString &connectionString);

} // namespace database
