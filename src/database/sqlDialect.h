// The statements of the program come in one dialect, to the letter. What the server at the other end spells differently
// is rewritten here, outside string literals only.
#pragma once

#include "database/servers.h"
#include <QStringList>

namespace database {

// The statement as the server spells it. Statements spell tables in more than one way: those among `tables`
// come out as they stand there.
QString rewrite(const QString &statement, Server server, const QStringList &tables);

} // namespace database
