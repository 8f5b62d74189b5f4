// One open connection to the database behind a connection text, through the ODBC driver manager. Statements come in one
// dialect, to the letter; what the server at the other end spells differently is rewritten on the way out.
#pragma once

#include "platform/database/resultTable.h"
#include "platform/result.h"
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

namespace platform {

class Connection {
public:
    // Opens by the text as stored ("PROVIDER=MSDASQL;" is cut on the way to the driver manager), with empty user and
    // password beside it. A connection from the pool is proved before it is handed out; a dead one is replaced.
    static Result<Connection> open(const QString &connectionString);
    Connection(Connection &&) noexcept;
    Connection &operator=(Connection &&) noexcept;
    ~Connection(); // releases the connection (to the driver manager's pool)

    // Runs a statement that gives no rows.
    Status execute(const QString &statement);
    // Runs a statement and takes its whole result, in blocks.
    Result<std::shared_ptr<ResultTable>> query(const QString &statement);

private:
    struct Handle;
    explicit Connection(std::unique_ptr<Handle> handle);
    std::unique_ptr<Handle> m_handle;
};

// The names of the machine's data sources, the user's own included; empty where there is no driver manager.
QStringList dataSourceNames();

} // namespace platform
