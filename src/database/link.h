// A connection at work, with what is known of it.
#pragma once

#include "database/callLimit.h"
#include "database/connectionText.h"
#include "database/odbcHandles.h"
#include "database/resultTable.h"
#include "database/sqlDialect.h"
#include <QStringList>
#include <chrono>
#include <memory>
#include <optional>

namespace database {

class Link {
public:
    // What a link gets from those who keep it.
    struct Facts {
        QStringList tables; // as the schema scripts spell them
        int number;         // no two links of a process bear the same
    };

    // A new link by the text as stored.
    static platform::Result<std::unique_ptr<Link>> connect(const QString &connectionString, const Facts &facts);

    ~Link();

    // Runs a statement, spelled as this link's server wants it; takes its whole result. A call that lasts longer than
    // the text allows ends with a fault.
    platform::Status execute(const QString &statement) const;
    platform::Result<std::shared_ptr<ResultTable>> query(const QString &statement) const;
    // Runs an insert of one row; what its key column was given, where the server tells it.
    platform::Result<std::optional<qint64>> insert(const QString &statement, const QString &keyColumn) const;
    // Whether the server at the other end is gone, or no part of its cluster any more, so that no statement can
    // succeed.
    bool lost() const;

    const QString &connectionString() const { return m_connectionString; }
    // Whether a link that was kept is of use still: its server answers, or did so a moment ago and has said nothing
    // since; its file is the one that stands there.
    bool works() const;
    // Whether that is the failure of a statement that the server did not look at, so that it may be run elsewhere.
    bool leftAlone(const platform::Failure &failure) const;
    // To be called before the link's end. The log of an SQLite database must not outlive its file: a file that takes
    // its name would be changed by it.
    void retire() const;

private:
    Link(const QString &connectionString, const Facts &facts);
    platform::Status open();
    platform::Status learn();
    platform::Status learnTables();
    platform::Status learnFile();
    // A statement as it stands, for the link's own ends, within the time of an opening.
    platform::Status run(const QString &statement) const;
    bool answeredJustNow() const;
    bool takesStatements() const;
    bool isDead() const;
    platform::Result<QStringList> firstColumn(const QString &statement) const;
    platform::Status start(const OdbcHandle &handle, const QString &statement) const;
    platform::Status insertReturning(const QString &statement, std::optional<qint64> &key) const;
    std::optional<qint64> lastKey() const;
    std::unique_ptr<OdbcHandle> statementHandle() const;
    void wentWell(std::unique_ptr<OdbcHandle> handle) const;
    platform::Failure told(const platform::Failure &failure) const;

    QString m_connectionString;
    int m_number;
    OdbcEnvironment m_environment;
    OdbcHandle m_connection;
    TimeLimits m_limits;
    mutable std::optional<CallLimit> m_calls; // where the link is open
    // The handle of a call that went well, closed, is used again: to make one costs as much as half a small statement.
    mutable std::unique_ptr<OdbcHandle> m_statement;
    mutable std::unique_ptr<OdbcHandle> m_keyQuestion;                       // prepared at its first use
    mutable std::optional<std::chrono::steady_clock::time_point> m_answered; // when the last call went well, if it did
    mutable bool m_returnsKeys = true; // with an insert; until it was seen that it does not
    TextForm m_form = TextForm::Wide;
    Server m_server = Server::Other;
    QStringList m_tables;   // in the server's own spelling, where it tells names by case
    QString m_file;         // of an SQLite database
    QString m_fileIdentity; // of that file when it was opened
};

} // namespace database
