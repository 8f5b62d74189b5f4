// A connection at work, with what is known of it, and the links that the process keeps for the next use. Opening one
// costs a driver far more than a small insert, and a connection per use is the rule here; the driver manager's own pool
// would hand out links that are dead (the server was started anew) or stale (the SQLite file was replaced), so that
// rows go where nobody sees them. A kept link is therefore proved before it is handed out, at the cost of one look at
// the file or one round trip. One thread.
#pragma once

#include "platform/database/callLimit.h"
#include "platform/database/connectionText.h"
#include "platform/database/odbcHandles.h"
#include "platform/database/resultTable.h"
#include "platform/database/sqlDialect.h"
#include <QStringList>
#include <memory>
#include <optional>

namespace platform {

class Link {
public:
    // A new link by the text as stored.
    static Result<std::unique_ptr<Link>> connect(const QString &connectionString);
    // A kept link that is proved to work, otherwise a new one.
    static Result<std::unique_ptr<Link>> take(const QString &connectionString);
    // Keeps the link for the next use; ends it where enough are kept.
    static void keep(std::unique_ptr<Link> link);
    // Ends all kept links.
    static void dropKept();

    ~Link();

    // Runs a statement, spelled as this link's server wants it; takes its whole result. A call that lasts longer than
    // the text allows ends with a fault.
    Status execute(const QString &statement) const;
    Result<std::shared_ptr<ResultTable>> query(const QString &statement) const;
    // Whether the server at the other end is gone, so that no statement can succeed any more.
    bool lost() const;

private:
    explicit Link(const QString &connectionString);
    Status open();
    bool works() const;
    Status learn();
    Status learnTables();
    Status learnFile();
    // A statement as it stands, for the link's own ends, within the time of an opening.
    Status run(const QString &statement) const;
    Result<QStringList> firstColumn(const QString &statement) const;
    Status start(const OdbcHandle &handle, const QString &statement) const;
    Failure told(const Failure &failure) const;
    void retire() const;

    QString m_connectionString;
    OdbcEnvironment m_environment;
    OdbcHandle m_connection;
    TimeLimits m_limits;
    mutable std::optional<CallLimit> m_calls; // where the link is open
    TextForm m_form = TextForm::Wide;
    Server m_server = Server::Other;
    QStringList m_tables;   // the server's spelling of the tables, where it tells names by case
    QString m_file;         // of an SQLite database
    QString m_fileIdentity; // of that file when it was opened
};

} // namespace platform
