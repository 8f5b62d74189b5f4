#include "tasks/previewRows.h"
#include "tasks/changeWords.h"

using namespace Qt::StringLiterals;

namespace tasks {

namespace {
constexpr qsizetype longestCell = 400; // characters; laying out more would take long
}

bool PreviewRows::isShown(const ChangePreview::Mark &mark) const {
    if (m_kind == allSteps || size_t(m_kind) < m_preview->steps())
        return m_kind == allSteps ? mark.step >= 0 : mark.step == m_kind;
    if (size_t(m_kind) == m_preview->doubtfulAt())
        return mark.doubtful;
    return mark.step ==
           (size_t(m_kind) == m_preview->alteredAt() ? ChangePreview::alteredByWriter : ChangePreview::refusedRecord);
}

void PreviewRows::choose(int kind) {
    m_kind = kind;
    m_seen = 0;
    m_shown.clear();
    grow();
}

void PreviewRows::grow() {
    if (!m_preview)
        return;
    const auto &marks = m_preview->marks();
    for (; m_seen < marks.size(); ++m_seen)
        if (isShown(marks[m_seen]))
            m_shown.push_back(quint32(m_seen));
}

QString PreviewRows::content(int row, Column column) const {
    const Change &made = change(row);
    const auto step = m_preview->marks()[id(row)].step;
    if (step == ChangePreview::refusedRecord)
        return column == BeforeColumn ? QString() : u"没有改成："_s + made.after;
    if (step == ChangePreview::alteredByWriter && column == AfterColumn && made.after.isEmpty())
        return u"（不写出）"_s;
    return shownContent(made.tag, column == BeforeColumn ? made.before : made.after);
}

QString PreviewRows::text(int row, int column) const {
    const int record = m_preview->recordOf(id(row)).row;
    switch (column) {
    case WantedColumn:
        return m_preview->isOut(id(row)) || m_preview->marks()[id(row)].step == ChangePreview::refusedRecord
                   ? QString()
                   : wanted.toString();
    case RecordColumn:
        return m_preview->list().number(record);
    case TitleColumn:
        return m_preview->list().title(record);
    case FieldColumn:
        return m_preview->marks()[id(row)].step == ChangePreview::refusedRecord ? QString() : shownField(change(row));
    default:
        return content(row, Column(column)).left(longestCell);
    }
}

} // namespace tasks
