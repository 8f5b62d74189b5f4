// A connection at work, with what is known of it.
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
    // What a link gets from those who keep it.
    struct Facts {
        QStringList tables;                // as the schema scripts spell them
        int number;                        // no two links of a process have the same
        const DriverRow *driver = nullptr; // of an earlier link by the same text
    };

    // A new link by the text as stored. Where the driver proves to be another one than was thought, and needs other
    // calls or other pairs in its text, the link is opened again as that driver needs it, before anything is read or
    // written over it.
    static platform::Result<std::unique_ptr<Link>> connect(const QString &connectionString, const Facts &facts);

    ~Link();

    // Runs a statement, spelled as this link's server wants it; takes its whole result. A call that lasts longer than
    // the text allows ends with a fault.
    platform::Status execute(const QString &statement);
    platform::Result<std::shared_ptr<ResultTable>> query(const QString &statement);
    // Runs an insert of one row; what its key column was given, where the server says it.
    platform::Result<std::optional<qint64>> insert(const QString &statement, const QString &keyColumn);
    // Whether the server at the other end is gone, or no part of its cluster any more, so that no statement can
    // succeed.
    bool lost();

    const QString &connectionString() const { return m_connectionString; }
    const DriverRow &driver() const { return *m_driver; }
    // Whether a link that was kept is of use still: its server answers, or did so a moment ago and has said nothing
    // since; its file is the one that stands there.
    bool works();
    // Whether that is the failure of a statement that the server did not look at, so that it may be run elsewhere.
    bool leftAlone(const platform::Failure &failure) const;
    // To be called before the link's end. The log of an SQLite database must not outlive its file: a file that takes
    // its name would be changed by it.
    void retire();

private:
    // What is known of the insert that returns its key.
    enum class Returning { Untried, Understood, Unknown };

    Link(const QString &connectionString, const QStringList &tables, const DriverRow &driver);
    platform::Status open(const QString &dataSource, Certainty certainty, const QString &number);
    const DriverRow &learnDriver();
    platform::Status learn();
    platform::Status learnTables();
    platform::Status learnFile();
    // A statement as it stands, for the link's own ends, within the time of an opening.
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
    std::optional<CallLimit> m_calls; // where the link is open
    // The handle of a call that went well, closed, is used again: to make one costs as much as half a small statement.
    std::unique_ptr<OdbcHandle> m_statement;
    std::unique_ptr<OdbcHandle> m_keyQuestion;                       // prepared at its first use
    std::optional<std::chrono::steady_clock::time_point> m_answered; // when the last call went well, if it did
    Returning m_returning = Returning::Untried;
    const DriverRow *m_driver;
    const ServerRow *m_server;
    QStringList m_tables;   // in the server's own spelling, where it tells names by case
    QString m_file;         // of a database that is a file
    QString m_fileIdentity; // of that file when it was opened
};

} // namespace database
