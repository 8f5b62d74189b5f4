// The statements of the program are written in one dialect. What the server spells differently is rewritten here,
// outside string literals only.
#pragma once

#include "database/servers.h"
#include <QStringList>

namespace database {

// Returns the statement as the server spells it. Table names that match one in `tables`, case-insensitively, are
// replaced by that spelling.
QString rewrite(const QString &statement, Server server, const QStringList &tables);

} // namespace database
