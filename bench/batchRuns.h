// Proof and look-up of a whole list in the real window.
#pragma once

#include "benchStage.h"
#include <optional>

namespace bench {

// Runs one round. Returns the seconds from the window being visible to its last remark.
std::optional<double> proofAllInWindow(const QString &database, std::shared_ptr<const marc::PreReadStore> records);
// Returns a command for the SQLite shell that lists the columns of the database that the look-up needs.
QString identitiesCommand(const QString &database);

} // namespace bench
