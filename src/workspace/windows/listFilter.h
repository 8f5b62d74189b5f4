// The box above the title list that filters it. The list follows the remarks and the changes within a fraction of a
// second; the current record stays in the list until it is left.
#pragma once

#include "workspace/recordFilter.h"
#include "workspace/windows/recordList.h"
#include <QComboBox>
#include <QTimer>

namespace workspace {

class ListFilter final : public QObject {
    Q_OBJECT
public:
    // `proved` returns whether there is a list of remarks.
    ListFilter(QComboBox &box, RecordList &list, RecordFilter::Sources sources, std::function<bool()> proved);

    void updateSoon(); // call when remarks or changes were added or removed
    void update();     // at once
    std::optional<std::vector<int>> rows() const { return m_filter.rows(); } // std::nullopt: all

Q_SIGNALS:
    void told(const QString &words);

private:
    void choose(int kind);

    QComboBox &m_box;
    RecordList &m_list;
    RecordFilter m_filter;
    std::function<bool()> m_proved;
    std::optional<std::vector<int>> m_shown; // what the list was set to
    QTimer m_pace;
};

} // namespace workspace
