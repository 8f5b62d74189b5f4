// Schema scripts: statements terminated by ";".
#pragma once

#include "database/connection.h"
#include <QString>
#include <QStringList>

namespace database {

// Returns the statements of a script, without comments and the terminating ";". A ";" in a literal does not end a
// statement.
QStringList statementsOf(const QString &script);

// Runs the statements in order, up to the first one that fails.
platform::Status runScript(Connection &connection, const QString &script);

} // namespace database
