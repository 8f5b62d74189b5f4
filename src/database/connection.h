// One open connection to the database named by a connection text, through the ODBC driver manager. Statements are
// written in one dialect; those that the server spells differently are rewritten before they are sent.
#pragma once

#include "database/resultTable.h"
#include "platform/result.h"
#include <QString>
#include <memory>
#include <optional>

namespace database {

class LinkPool;

class Connection {
public:
    // Opens a connection by the text as stored ("PROVIDER=MSDASQL;" is removed before the driver manager sees it), with
    // an empty user and password in addition. A connection kept from an earlier use is tested first; if it is dead, or
    // its SQLite file was replaced, a new one is opened.
    static platform::Result<Connection> open(LinkPool &links, const QString &connectionString);
    Connection(Connection &&) noexcept;
    Connection &operator=(Connection &&) noexcept;
    ~Connection(); // releases the connection; the pool, which must still exist, keeps it for the next use

    // If a connection is found dead when a statement fails, a new one is opened: for the next statement, and to repeat
    // a failed query. A statement that changes data is repeated only if the server has reported that it did not execute
    // it.

    // Runs a statement that returns no rows.
    platform::Status execute(const QString &statement);
    // Runs an insert of one row. Returns the key that the server generated in `keyColumn`; std::nullopt if the server
    // does not report it. The insert is sent once; only a server that does not understand the form that returns the key
    // gets the plain form after it.
    platform::Result<std::optional<qint64>> insert(const QString &statement, const QString &keyColumn);
    // Returns whether the connection was lost during the last statement. The result of the statement is then lost too:
    // whether a change was carried out is unknown.
    bool lost() const;
    // Runs a query, which changes nothing, and fetches its whole result, in blocks.
    platform::Result<std::shared_ptr<ResultTable>> query(const QString &statement);

private:
    struct Handle;
    explicit Connection(std::unique_ptr<Handle> handle);
    std::unique_ptr<Handle> m_handle;
};

} // namespace database
