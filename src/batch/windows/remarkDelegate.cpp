#include "batch/windows/remarkDelegate.h"

namespace batch {

widgets::Mark markOf(schema::Level level) {
    constexpr std::array<widgets::Mark, schema::levelCount> marks = {widgets::Mark::Error, widgets::Mark::Warning,
                                                                     widgets::Mark::Hint};
    return marks[size_t(level)];
}

std::optional<RemarkDelegate::CellMark> RemarkDelegate::markOf(const QModelIndex &index) const {
    if (index.column() != RemarkList::LevelColumn || index.row() >= m_list->rowCount())
        return std::nullopt;
    return CellMark{batch::markOf(m_list->remark(index.row()).level), false};
}

} // namespace batch
