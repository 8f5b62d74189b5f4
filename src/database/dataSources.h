// What the driver manager knows of the machine.
#pragma once

#include <QString>
#include <QStringList>

namespace database {

// The names of the machine's data sources, the user's own included; empty where there is no driver manager.
QStringList dataSourceNames();

// What the machine says of a data source, as pairs of a connection text with the driver first; empty where there is no
// such source. On Windows its driver is all that is told.
QString pairsOfDataSource(const QString &name);

// The library of a driver that a connection text names: of the registered name, or the name itself where it is a path.
// Empty where that is not known, as on Windows.
QString libraryOfDriver(const QString &driver);

// Whether the driver manager keeps ended connections in a pool of its own. unixODBC has that from its files alone, and
// no process can have it otherwise; on Windows a process has none that asks for none.
bool driverManagerPools();

} // namespace database
