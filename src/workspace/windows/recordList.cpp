#include "workspace/windows/recordList.h"
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <array>
#include <numeric>

namespace workspace {

namespace {

constexpr auto widths = std::to_array<int>({0, 2190, 0});
static_assert(std::reduce(widths.begin(), widths.end()) == RecordList::allTwips);

} // namespace

RecordList::RecordList(const QString &objectName, QWidget *parent)
    : FlexGrid(objectName, int(widths.size()), 0, parent) {
    for (int column = 0; column < columns(); ++column) {
        setColumnTwips(column, widths[size_t(column)]);
        setColumnAlignment(column, Qt::AlignLeft | Qt::AlignVCenter);
    }
    connect(this, &FlexGrid::gridClicked, this, [this] {
        if (rowSel() != row())
            setRowSel(row());
        markCurrent();
    });
    connect(this, &FlexGrid::keyReleased, this, [this](int key) {
        if (key == Qt::Key_Up || key == Qt::Key_Down)
            markCurrent();
    });
}

void RecordList::reset() {
    m_records->reset();
    clear();
    bind(m_records);
}

void RecordList::setTitle(int row, const QString &title) {
    m_records->setTitle(row, title);
    sourceChanged(row, titleColumn);
}

void RecordList::take(int row, const marc::RawRecord &record) {
    const marc::RawRecord before = m_records->record(row);
    m_records->setRecord(row, record);
    Q_EMIT taken(row, before, record);
}

void RecordList::keyPressEvent(QKeyEvent *event) {
    const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const QString text = event->text();
    if (!command && !text.isEmpty() && text[0].isPrint() && !text[0].isSpace()) {
        Q_EMIT lettersTyped(text);
        return;
    }
    FlexGrid::keyPressEvent(event);
}

// Qt disables the input method in views whose cells cannot be edited.
QVariant RecordList::inputMethodQuery(Qt::InputMethodQuery query) const {
    return query == Qt::ImEnabled ? QVariant(true) : FlexGrid::inputMethodQuery(query);
}

void RecordList::inputMethodEvent(QInputMethodEvent *event) {
    if (!event->commitString().isEmpty())
        Q_EMIT lettersTyped(event->commitString());
    event->accept();
}

void RecordList::markCurrent() {
    Q_EMIT currentMarked(m_records->number(row()));
    setColumn(titleColumn);
    setCellBackground(row(), titleColumn, currentColour);
}

void RecordList::markVisited() {
    setCellBackground(row(), titleColumn, visitedColour);
}

} // namespace workspace
