// Schema scripts: statements ended by ";".
#pragma once

#include "database/connection.h"
#include <QString>
#include <QStringList>

namespace database {

// The statements of a script, without comments and the ";" that ends them; a ";" in a literal ends nothing.
QStringList statementsOf(const QString &script);

// Runs them in order, up to the first that fails.
platform::Status runScript(Connection &connection, const QString &script);

} // namespace database
