#include "platform/database/connection.h"
#include "platform/database/link.h"

namespace platform {

struct Connection::Handle {
    std::unique_ptr<Link> link;

    ~Handle() {
        if (link)
            Link::keep(std::move(link));
    }
};

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
    return m_handle->link->execute(statement);
}

Result<std::shared_ptr<ResultTable>> Connection::query(const QString &statement) {
    return m_handle->link->query(statement);
}

void endKeptConnections() {
    Link::dropKept();
}

} // namespace platform
