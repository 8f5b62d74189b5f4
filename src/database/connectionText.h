// The connection text on its way to the driver manager: key=value pairs joined by ";". The stored text itself is never
// changed.
#pragma once

#include "database/servers.h"
#include <chrono>

namespace database {

// The value of the first pair of that key (compared without regard to case), without braces; empty where there is none.
QString connectionValue(QStringView text, QStringView key);

// Whether each value that begins with "{" has its "}". Where one has none, drivers take all that follows for its part,
// what we add among it.
bool bracesAreClosed(QStringView text);

// How long a server may take to open a connection, and for one statement; 0: as long as it likes. The keys LoginTimeout
// and StatementTimeout of the text, else of its data source, say otherwise (whole seconds, a day at most).
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

// The driver that the text names or, where it names none, its data source; the row is a guess (servers.h).
const DriverRow &namedDriver(const QString &connectionString, const QString &dataSource);

// The stored text as the driver manager takes it: "PROVIDER=MSDASQL;" cut, and the pairs that the driver needs added.
// `dataSource` is what the machine says of the text's data source, as pairs with the driver first. A driver that is
// guessed may prove to be SQLite's, which must not make a file by then.
enum class Certainty { Guessed, Known };
QString driverText(const QString &connectionString, const QString &dataSource, const DriverRow &driver,
                   Certainty certainty);

} // namespace database
