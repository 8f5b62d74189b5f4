#include "workspace/windows/listChanges.h"
#include <utility>

namespace workspace {

ListChanges::ListChanges(const Parts &parts, const WorkspaceWindows &windows, std::function<QString()> file,
                         std::function<std::optional<std::vector<int>>()> shown)
    : m_parts(parts)
    , m_windows(windows)
    , m_file(std::move(file))
    , m_shown(std::move(shown)) {}

BatchNeeds ListChanges::needs() {
    return {
        .records = m_parts.list.sharedRecords(),
        .file = m_file(),
        .put = [this](int row, const marc::RawRecord &record, const QString &title) { put(row, record, title); },
        .busyRow = [this] { return m_parts.record.differsFromList() ? m_parts.list.row() : -1; },
        .shown = m_shown,
        .remarked = [this] { return m_parts.remarks.rowsWithRemarks(); },
        .rules = [this] { return m_parts.remarks.violatedRules(); },
        .jump =
            [this](const marc::FieldPlace &place) { m_parts.remarks.jump(place, QStringLiteral("F9 回到批量修改")); },
    };
}

void ListChanges::put(int row, const marc::RawRecord &record, const QString &title) {
    m_parts.list.take(row, record);
    if (m_parts.list.records().title(row) != title)
        m_parts.list.setTitle(row, title);
    if (row == m_parts.list.row())
        m_parts.moving.showRecord(record);
}

void ListChanges::open() {
    if (!isAvailable())
        return;
    m_parts.commands.takeEdits();
    if (!m_open)
        m_open = m_windows.makeBatch(needs(), m_parts.list.window());
    m_open();
}

} // namespace workspace
