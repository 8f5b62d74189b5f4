// A physical connection, with the properties of its driver and server.
#pragma once

#include "database/callLimit.h"
#include "database/connectionText.h"
#include "database/odbcHandles.h"
#include "database/resultTable.h"
#include "database/servers.h"
#include <QStringList>
#include <chrono>
#include <memory>
#include <optional>

namespace database {

class Link {
public:
    // The data that the owner of the links passes to a new one.
    struct Facts {
        QStringList tables;                // spelled as in the schema scripts
        int number;                        // unique among the links of a process
        const DriverRow *driver = nullptr; // the driver of an earlier link with the same text, or null
    };

    // Opens a new link by the text as stored. If the driver turns out to differ from the assumed one, and needs other
    // calls or other pairs in its text, the link is opened again for that driver before anything is read or written
    // over it.
    static platform::Result<std::unique_ptr<Link>> connect(const QString &connectionString, const Facts &facts);

    ~Link();

    // Runs a statement, rewritten for this link's server, and fetches its whole result. A call that lasts longer than
    // the text allows fails.
    platform::Status execute(const QString &statement);
    platform::Result<std::shared_ptr<ResultTable>> query(const QString &statement);
    // Runs an insert of one row. Returns the value of its key column, if the server reports it.
    platform::Result<std::optional<qint64>> insert(const QString &statement, const QString &keyColumn);
    // Returns whether the server is gone, or no longer part of its cluster, so that no statement can succeed.
    bool lost();

    const QString &connectionString() const { return m_connectionString; }
    const DriverRow &driver() const { return *m_driver; }
    // Returns whether a kept link is still usable: its server answers, or answered a moment ago and has sent nothing
    // since; for a database file: the file was not replaced.
    bool works();
    // Returns whether the failure means that the server did not execute the statement, so that it may be repeated over
    // another link.
    bool leftAlone(const platform::Failure &failure) const;
    // Must be called before the link is destroyed. The log of an SQLite database must not outlive its file: it would
    // change a file that takes the same name.
    void retire();

private:
    // Whether the server understands the insert that returns its key.
    enum class Returning { Untried, Understood, Unknown };

    Link(const QString &connectionString, const QStringList &tables, const DriverRow &driver);
    platform::Status open(const QString &dataSource, Certainty certainty, const QString &number);
    const DriverRow &learnDriver();
    platform::Status learn();
    platform::Status learnTables();
    platform::Status learnFile();
    // Runs a statement of the link itself, not rewritten, within the login time limit.
    platform::Status run(const QString &statement);
    bool answeredJustNow() const;
    bool isDead();
    platform::Result<QStringList> firstColumn(const QString &statement);
    platform::Status start(const OdbcHandle &handle, const QString &statement) const;
    platform::Result<std::optional<qint64>> insertReturning(const QString &statement);
    bool isUnderstood(const Fault &fault) const;
    std::optional<qint64> lastKey();
    std::unique_ptr<OdbcHandle> statementHandle();
    void wentWell(std::unique_ptr<OdbcHandle> handle);
    platform::Failure told(const platform::Failure &failure) const;

    QString m_connectionString;
    OdbcEnvironment m_environment;
    OdbcHandle m_connection;
    TimeLimits m_limits;
    std::optional<CallLimit> m_calls; // set while the link is open
    // The closed handle of a successful call, for the next call: making a handle costs as much as half a small
    // statement.
    std::unique_ptr<OdbcHandle> m_statement;
    std::unique_ptr<OdbcHandle> m_keyQuestion;                       // prepared at its first use
    std::optional<std::chrono::steady_clock::time_point> m_answered; // when the last call succeeded; empty if it failed
    Returning m_returning = Returning::Untried;
    const DriverRow *m_driver;
    const ServerRow *m_server;
    QStringList m_tables;   // in the server's own spelling if its table names are case-sensitive
    QString m_file;         // path of a database that is a file
    QString m_fileIdentity; // identity of that file when it was opened
};

} // namespace database
