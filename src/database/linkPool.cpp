#include "database/linkPool.h"
#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace database {

namespace {

constexpr size_t mostKept = 4;
constexpr std::chrono::seconds idleTime(2);

} // namespace

LinkPool::LinkPool(QStringList tables)
    : m_tables(std::move(tables)) {
    m_idle.setSingleShot(true);
    m_idle.setInterval(idleTime);
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] { dropKept(); });
}

LinkPool::~LinkPool() {
    dropKept();
}

platform::Result<std::unique_ptr<Link>> LinkPool::take(const QString &connectionString) {
    for (;;) {
        const auto found = std::ranges::find_if(
            m_kept, [&connectionString](const auto &link) { return link->connectionString() == connectionString; });
        if (found == m_kept.end())
            return connect(connectionString);
        std::unique_ptr<Link> link = std::move(*found);
        m_kept.erase(found);
        if (link->works())
            return link;
        link->retire();
    }
}

platform::Result<std::unique_ptr<Link>> LinkPool::connect(const QString &connectionString) {
    auto link =
        Link::connect(connectionString,
                      {.tables = m_tables, .number = ++m_opened, .driver = m_drivers.value(connectionString, nullptr)});
    if (link)
        m_drivers.insert(connectionString, &link.value()->driver());
    return link;
}

void LinkPool::keep(std::unique_ptr<Link> link) {
    m_kept.push_back(std::move(link));
    if (m_kept.size() > mostKept) {
        m_kept.front()->retire();
        m_kept.erase(m_kept.begin());
    }
    if (QCoreApplication::instance()) // a timer needs an event loop
        m_idle.start();
}

void LinkPool::dropKept() {
    for (const std::unique_ptr<Link> &link : m_kept)
        link->retire();
    m_kept.clear();
}

} // namespace database
