// Prepares the connection text for the driver manager: key=value pairs separated by ";". The stored text itself is
// never changed.
#pragma once

#include "database/servers.h"
#include <chrono>

namespace database {

// Returns the value of the first pair with that key (case-insensitive), without braces; an empty string if there is
// none.
QString connectionValue(QStringView text, QStringView key);

// Returns whether each value that begins with "{" has its "}". If one has none, drivers take all text after it,
// including added pairs, as part of the value.
bool bracesAreClosed(QStringView text);

// The time that a server may take to open a connection and to run one statement; 0: no limit. The keys LoginTimeout and
// StatementTimeout of the text, or else of its data source, override the defaults (whole seconds, at most a day).
struct TimeLimits {
    std::chrono::seconds login{15};
    std::chrono::seconds statement{60};

    // For the socket: longer than the statement limit, so that the server's own timeout error arrives before the
    // connection is closed.
    std::chrono::seconds silence() const {
        return statement.count() > 0 ? statement + std::chrono::seconds(2) : statement;
    }
};
TimeLimits timeLimits(const QString &connectionString, const QString &dataSource);

// Returns the driver that the text names, or else its data source; the row is a guess (servers.h).
const DriverRow &namedDriver(const QString &connectionString, const QString &dataSource);

// Returns the stored text as the driver manager takes it: without "PROVIDER=MSDASQL;", and with the pairs that the
// driver needs. `dataSource` is the system's definition of the text's data source, as pairs with the driver first. A
// guessed driver may turn out to be SQLite's; until that is known it must not create a file.
enum class Certainty { Guessed, Known };
QString driverText(const QString &connectionString, const QString &dataSource, const DriverRow &driver,
                   Certainty certainty);

} // namespace database
