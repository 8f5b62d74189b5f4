// What the driver manager knows of the machine.
#pragma once

#include <QString>
#include <QStringList>

namespace platform {

// The names of the machine's data sources, the user's own included; empty where there is no driver manager.
QStringList dataSourceNames();

// The names of the machine's drivers.
QStringList driverNames();

// What the machine says of a data source, on most systems its driver's name; empty where there is no such source.
QString driverOfDataSource(QStringView name);

// What stands under a data source in the driver manager's files, as pairs of a connection text with the driver first;
// empty where that is not kept in files.
QString pairsOfDataSource(const QString &name);

} // namespace platform
