#include "workspace/windows/listFilter.h"
#include <chrono>
#include <utility>

namespace workspace {

namespace {
constexpr std::chrono::milliseconds pace(150); // in a run, remarks come thousands of times a second
}

ListFilter::ListFilter(QComboBox &box, RecordList &list, RecordFilter::Sources sources, std::function<bool()> proved)
    : m_box(box)
    , m_list(list)
    , m_filter(std::move(sources))
    , m_proved(std::move(proved)) {
    for (const QStringView name : RecordFilter::names)
        m_box.addItem(name.toString());
    m_pace.setInterval(pace);
    connect(&m_pace, &QTimer::timeout, this, &ListFilter::update);
    connect(&m_box, &QComboBox::activated, this, &ListFilter::choose);
}

void ListFilter::updateSoon() {
    if (m_filter.kind() != RecordFilter::Kind::All && !m_pace.isActive())
        m_pace.start();
}

void ListFilter::choose(int kind) {
    m_filter.choose(RecordFilter::Kind(kind));
    update();
    m_list.scrollToRow(m_list.row());
    Q_EMIT told(m_shown && m_shown->empty() ? m_filter.emptyWords(m_proved()) : QString());
}

void ListFilter::update() {
    m_pace.stop();
    std::optional<std::vector<int>> rows = m_filter.rows();
    for (int kind = 0; kind < m_box.count(); ++kind)
        m_box.setItemText(kind, m_filter.caption(RecordFilter::Kind(kind), rows));
    if (rows == m_shown)
        return;
    m_list.showOnly(rows);
    m_shown = std::move(rows);
}

} // namespace workspace
