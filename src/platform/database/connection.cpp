#include "platform/database/connection.h"
#include "platform/database/link.h"
#include "platform/database/rowReader.h"

namespace platform {

struct Connection::Handle {
    std::unique_ptr<Link> link;

    ~Handle() {
        if (link)
            Link::keep(std::move(link));
    }
};

namespace {

// Runs the statement on a fresh handle, as this server spells it; a deletion that meets no row is a success.
Status run(const Link &link, const OdbcHandle &handle, const QString &statement) {
    if (!handle)
        return Failure{};
    // Braces and question marks in a value are text, nothing for the driver to look into.
    SQLSetStmtAttrW(handle.get(), SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
    return odbcExecute(handle, link.spelled(statement), link.form());
}

} // namespace

Connection::Connection(std::unique_ptr<Handle> handle)
    : m_handle(std::move(handle)) {}
Connection::Connection(Connection &&) noexcept = default;
Connection &Connection::operator=(Connection &&) noexcept = default;
Connection::~Connection() = default;

Result<Connection> Connection::open(const QString &connectionString) {
    Result<std::unique_ptr<Link>> link = Link::take(connectionString);
    if (!link)
        return link.failure();
    auto handle = std::make_unique<Handle>();
    handle->link = std::move(link).value();
    return Connection(std::move(handle));
}

Status Connection::execute(const QString &statement) {
    const OdbcHandle handle(SQL_HANDLE_STMT, m_handle->link->handle());
    return run(*m_handle->link, handle, statement);
}

Result<std::shared_ptr<ResultTable>> Connection::query(const QString &statement) {
    for (const Fetching fetching : {Fetching::Bound, Fetching::Unbound}) {
        const OdbcHandle handle(SQL_HANDLE_STMT, m_handle->link->handle());
        if (Status ran = run(*m_handle->link, handle, statement); !ran)
            return ran.failure();
        auto rows = readRows(handle, m_handle->link->form(), fetching);
        if (!rows)
            return rows.failure();
        if (rows.value())
            return *rows.value();
    }
    Q_UNREACHABLE();
}

void endKeptConnections() {
    Link::dropKept();
}

} // namespace platform
