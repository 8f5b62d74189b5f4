#include "platform/database/connection.h"
#include "platform/database/link.h"

namespace platform {

struct Connection::Handle {
    QString connectionString;
    std::unique_ptr<Link> link; // none where it was lost

    ~Handle() {
        if (link)
            Link::keep(std::move(link));
    }

    Status ready() {
        if (link)
            return success();
        Result<std::unique_ptr<Link>> taken = Link::take(connectionString);
        if (!taken)
            return taken.failure();
        link = std::move(taken).value();
        return success();
    }

    // Runs one call over the link.
    template <class Outcome, class Call>
    Outcome over(Call call) {
        if (const Status there = ready(); !there)
            return there.failure();
        Outcome outcome = call(*link);
        if (!outcome && link->lost())
            link.reset();
        return outcome;
    }
};

Connection::Connection(std::unique_ptr<Handle> handle)
    : m_handle(std::move(handle)) {}
Connection::Connection(Connection &&) noexcept = default;
Connection &Connection::operator=(Connection &&) noexcept = default;
Connection::~Connection() = default;

Result<Connection> Connection::open(const QString &connectionString) {
    auto handle = std::make_unique<Handle>();
    handle->connectionString = connectionString;
    if (const Status opened = handle->ready(); !opened)
        return opened.failure();
    return Connection(std::move(handle));
}

Status Connection::execute(const QString &statement) {
    return m_handle->over<Status>([&](const Link &link) { return link.execute(statement); });
}

Result<std::shared_ptr<ResultTable>> Connection::query(const QString &statement) {
    using Rows = Result<std::shared_ptr<ResultTable>>;
    const auto ask = [&](const Link &link) { return link.query(statement); };
    const bool held = m_handle->link != nullptr;
    Rows rows = m_handle->over<Rows>(ask);
    return held && !m_handle->link ? m_handle->over<Rows>(ask) : rows;
}

void endKeptConnections() {
    Link::dropKept();
}

} // namespace platform
