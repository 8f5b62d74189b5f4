// The proof and look-up of a whole list in its real window.
#pragma once

#include "benchStage.h"
#include <optional>

namespace bench {

// A round, from the window on the screen to its last remark.
std::optional<double> proofAllInWindow(const QString &database, std::shared_ptr<const marc::PreReadStore> records);
// What the look-up needs to know of the database, listed in the shell of SQLite.
QString identitiesCommand(const QString &database);

} // namespace bench
