#include "database/connection.h"
#include "database/linkPool.h"
#include <utility>

namespace database {

struct Connection::Handle {
    LinkPool &links;
    QString connectionString;
    std::unique_ptr<Link> link; // null after the connection was lost

    ~Handle() {
        if (link)
            links.keep(std::move(link));
    }

    platform::Status ready() {
        if (link)
            return platform::success();
        platform::Result<std::unique_ptr<Link>> taken = links.take(connectionString);
        if (!taken)
            return taken.failure();
        link = std::move(taken).value();
        return platform::success();
    }

    // Runs one call over the link; drops the link if it was lost.
    template <class Outcome, class Call>
    Outcome over(Call call) {
        if (const platform::Status there = ready(); !there)
            return there.failure();
        Outcome outcome = call(*link);
        if (!outcome && link->lost())
            link.reset();
        return outcome;
    }

    // Runs a call that changes data. Repeats it over a new link only if the server did not execute it.
    template <class Outcome, class Call>
    Outcome change(Call call) {
        bool leftAlone = false;
        const auto watched = [&](Link &held) {
            Outcome outcome = call(held);
            leftAlone = !outcome && held.leftAlone(outcome.failure());
            return outcome;
        };
        const bool held = link != nullptr;
        Outcome outcome = over<Outcome>(watched);
        return held && !link && leftAlone ? over<Outcome>(watched) : outcome;
    }
};

Connection::Connection(std::unique_ptr<Handle> handle)
    : m_handle(std::move(handle)) {}
Connection::Connection(Connection &&) noexcept = default;
Connection &Connection::operator=(Connection &&) noexcept = default;
Connection::~Connection() = default;

platform::Result<Connection> Connection::open(LinkPool &links, const QString &connectionString) {
    std::unique_ptr<Handle> handle(new Handle{links, connectionString, nullptr});
    if (const platform::Status opened = handle->ready(); !opened)
        return opened.failure();
    return Connection(std::move(handle));
}

platform::Status Connection::execute(const QString &statement) {
    return m_handle->change<platform::Status>([&](Link &link) { return link.execute(statement); });
}

platform::Result<std::optional<qint64>> Connection::insert(const QString &statement, const QString &keyColumn) {
    return m_handle->change<platform::Result<std::optional<qint64>>>(
        [&](Link &link) { return link.insert(statement, keyColumn); });
}

bool Connection::lost() const {
    return !m_handle->link;
}

platform::Result<std::shared_ptr<ResultTable>> Connection::query(const QString &statement) {
    using Rows = platform::Result<std::shared_ptr<ResultTable>>;
    const auto ask = [&](Link &link) { return link.query(statement); };
    const bool held = m_handle->link != nullptr;
    Rows rows = m_handle->over<Rows>(ask);
    return held && !m_handle->link ? m_handle->over<Rows>(ask) : rows;
}

} // namespace database
