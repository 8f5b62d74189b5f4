// The connection text on its way to the driver manager: key=value pairs joined by ";". The stored text itself is never
// changed.
#pragma once

#include <QString>
#include <QStringView>

namespace platform {

// The value of the first pair of that key (compared without regard to case), without braces; empty where there is none.
QString connectionValue(QStringView text, QStringView key);

// The stored text as the driver manager takes it: "PROVIDER=MSDASQL;" cut, the file of an Access database named as its
// driver on this system wants it, results of SQLite streamed instead of read whole into the driver and no file made
// where there is none, texts of MariaDB in UTF-8 and no connection of it made anew behind our back. `dataSource` is
// what the machine says of the text's data source, as pairs with the driver first.
QString driverText(const QString &connectionString, const QString &dataSource);

} // namespace platform
