// The connection text on its way to the driver manager: key=value pairs joined by ";". The stored text itself is never
// changed.
#pragma once

#include <QString>
#include <QStringView>
#include <chrono>

namespace database {

// The value of the first pair of that key (compared without regard to case), without braces; empty where there is none.
QString connectionValue(QStringView text, QStringView key);

// Whether each value that begins with "{" has its "}". Where one has none, drivers take all that follows for its part,
// what we add among it.
bool bracesAreClosed(QStringView text);

// How long a server may take to open a connection, and for one statement; 0: as long as it likes. The keys LoginTimeout
// and StatementTimeout of the text, else of its data source, say otherwise (whole seconds).
struct TimeLimits {
    std::chrono::seconds login{15};
    std::chrono::seconds statement{60};

    // For the socket: the server's own answer that it took too long must have time to come, else the connection is
    // lost.
    std::chrono::seconds silence() const {
        return statement.count() > 0 ? statement + std::chrono::seconds(2) : statement;
    }
};
TimeLimits timeLimits(const QString &connectionString, const QString &dataSource);

// The stored text as the driver manager takes it: "PROVIDER=MSDASQL;" cut, and what each driver must be told added. Of
// SQLite results are streamed instead of read whole into the driver, no file is made where there is none, and a lock is
// waited for no longer than two seconds; MariaDB gets the time limits and UTF-8, and makes no connection anew behind
// our back; the file of an Access database is named as its driver on this system wants it. `dataSource` is what the
// machine says of the text's data source, as pairs with the driver first.
QString driverText(const QString &connectionString, const QString &dataSource);

} // namespace database
