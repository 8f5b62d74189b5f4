// One open connection to the database behind a connection text, through the ODBC driver manager. Statements come in one
// dialect, to the letter; what the server at the other end spells differently is rewritten on the way out.
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
    // Opens by the text as stored ("PROVIDER=MSDASQL;" is cut on the way to the driver manager), with empty user and
    // password beside it. A connection kept from an earlier use is proved before it is handed out; one that is dead, or
    // whose SQLite file was replaced, gives way to a new one.
    static platform::Result<Connection> open(LinkPool &links, const QString &connectionString);
    Connection(Connection &&) noexcept;
    Connection &operator=(Connection &&) noexcept;
    ~Connection(); // releases the connection; the pool, which must still stand, keeps it for the next use

    // A connection that proves dead when a statement fails is opened anew: for the next statement, and for the question
    // that failed. A statement that changes something is sent again only where the server has said that it did not look
    // at it.

    // Runs a statement that gives no rows.
    platform::Status execute(const QString &statement);
    // Runs an insert of one row; the key that the server gave it in that column, or nothing where it does not say. The
    // insert is sent once; only a server that does not understand the form with the key gets the plain form after it.
    platform::Result<std::optional<qint64>> insert(const QString &statement, const QString &keyColumn);
    // Whether the connection was lost with the last statement. The answer to it is lost then too: nobody knows whether
    // a change was carried out.
    bool lost() const;
    // Asks a question, which changes nothing, and takes its whole result, in blocks.
    platform::Result<std::shared_ptr<ResultTable>> query(const QString &statement);

private:
    struct Handle;
    explicit Connection(std::unique_ptr<Handle> handle);
    std::unique_ptr<Handle> m_handle;
};

} // namespace database
