// Reads the data sources and drivers of this machine from the driver manager.
#pragma once

#include <QString>
#include <QStringList>

namespace database {

// Returns the names of the data sources of the system and of the user; empty without a driver manager.
QStringList dataSourceNames();

// Returns the definition of a data source, as pairs of a connection text with the driver first; empty if there is no
// such source. On Windows the result contains only the driver.
QString pairsOfDataSource(const QString &name);

// Returns the library of a driver named in a connection text: of the registered driver, or the name itself if it is a
// path. Empty if the library is not known, as on Windows.
QString libraryOfDriver(const QString &driver);

// Returns whether the driver manager pools closed connections. unixODBC takes this only from its configuration files,
// and a process cannot override it; on Windows a process has no pool unless it requests one.
bool driverManagerPools();

} // namespace database
