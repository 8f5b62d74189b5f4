// The user's input on a flexible grid. The handlers of the view are not called: a slot connected to leaveCell may open
// a box, change the rows or run the event loop, which must not happen inside a handler of the view.
#include "widgets/flexGrid.h"
#include "widgets/flexGridModel.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimerEvent>
#include <algorithm>
#include <optional>

namespace widgets {

namespace {
constexpr int dragMilliseconds = 40;
}

// Positions count the shown rows of the view from 0, without the fixed rows.
int FlexGrid::positionOf(int row) const {
    return m_model->shown().positionOf(row - m_fixedRows);
}

int FlexGrid::rowAtPosition(int position) const {
    return m_model->shown().rowAt(position) + m_fixedRows;
}

int FlexGrid::shownRow(int from, int steps) const {
    const int position = positionOf(from) + steps;
    return position >= 0 && position < m_model->shownCount() ? rowAtPosition(position) : -1;
}

int FlexGrid::nearestShown(int from, int steps) const {
    const int count = m_model->shownCount();
    return count == 0 ? nearestRow(from) : rowAtPosition(std::clamp(positionOf(from) + steps, 0, count - 1));
}

// Moves to another row and emits leaveCell and enterCell. The rows may change during leaveCell.
void FlexGrid::moveByUser(int row, int column) {
    if (m_moving)
        return;
    if (row == this->row()) {
        select(row, row, column);
        scrollToRow(row);
        return;
    }
    const QPointer<FlexGrid> self(this);
    m_moving = true;
    Q_EMIT leaveCell();
    if (!self)
        return;
    select(row, row, column);
    scrollToRow(m_row);
    if (rows() > m_fixedRows)
        Q_EMIT enterCell();
    if (self)
        m_moving = false;
}

void FlexGrid::clickRow(int row) {
    const QPointer<FlexGrid> self(this);
    moveByUser(nearestRow(row), m_column);
    if (self)
        Q_EMIT gridClicked();
}

void FlexGrid::extendByUser(int row) {
    if (m_moving)
        return;
    select(m_row, row, m_column);
    scrollToRow(m_rowSel);
}

void FlexGrid::moveColumnByUser(int step, int most) {
    int found = m_column;
    for (int column = m_column + step; column >= 0 && column < columns(); column += step) {
        if (isColumnHidden(column))
            continue;
        found = column;
        if (--most == 0)
            break;
    }
    select(m_row, m_rowSel, found);
    scrollToRow(rowSel());
}

void FlexGrid::mousePressEvent(QMouseEvent *event) {
    if (m_moving)
        return;
    m_dragTimer.stop(); // its release may have gone to a box
    const QModelIndex cell = indexAt(event->position().toPoint());
    m_pressed = event->button();
    m_drags = m_pressed == Qt::LeftButton && cell.isValid(); // not below the last row
    // A box or menu opened by a slot swallows the release; settlePress() then emits the click. (Events synthesised by a
    // test do not appear in mouseButtons().)
    const bool byHand = QGuiApplication::mouseButtons().testFlag(m_pressed);
    const QPointer<FlexGrid> self(this);
    if (m_pressed == Qt::RightButton)
        Q_EMIT rightPressed();
    else if (m_drags && event->modifiers().testFlag(Qt::ShiftModifier))
        extendByUser(rowAtPosition(cell.row()));
    else if (m_drags)
        moveByUser(rowAtPosition(cell.row()), cell.column());
    if (self && byHand)
        QMetaObject::invokeMethod(this, &FlexGrid::settlePress, Qt::QueuedConnection);
}

void FlexGrid::settlePress() {
    if (m_pressed == Qt::NoButton || QGuiApplication::mouseButtons().testFlag(m_pressed))
        return;
    m_pressed = Qt::NoButton;
    Q_EMIT gridClicked();
}

void FlexGrid::mouseMoveEvent(QMouseEvent *event) {
    if (m_pressed != Qt::LeftButton || !m_drags || !event->buttons().testFlag(Qt::LeftButton))
        return;
    const int y = event->position().toPoint().y();
    const int height = viewport()->height();
    m_dragDirection = y < 0 ? -1 : y >= height ? 1 : 0;
    if (m_dragDirection == 0) {
        m_dragTimer.stop();
        const int dataRow = rowAt(y); // -1 below the last row
        extendByUser(dataRow < 0 ? nearestShown(rows(), 0) : rowAtPosition(dataRow));
    } else if (!m_dragTimer.isActive()) {
        m_dragTimer.start(dragMilliseconds, this);
    }
}

void FlexGrid::timerEvent(QTimerEvent *event) {
    if (event->timerId() != m_dragTimer.timerId()) {
        QTableView::timerEvent(event);
        return;
    }
    if (QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
        extendByUser(nearestShown(rowSel(), m_dragDirection));
    else
        m_dragTimer.stop();
}

void FlexGrid::mouseReleaseEvent(QMouseEvent *event) {
    m_dragTimer.stop();
    if (event->button() != m_pressed)
        return;
    m_pressed = Qt::NoButton;
    if (viewport()->rect().contains(event->position().toPoint()))
        Q_EMIT gridClicked();
}

// The second press of a double click does not emit gridClicked.
void FlexGrid::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    if (m_moving)
        return;
    const QPointer<FlexGrid> self(this);
    if (const QModelIndex cell = indexAt(event->position().toPoint()); cell.isValid())
        moveByUser(rowAtPosition(cell.row()), cell.column()); // the first press may have gone to a box
    if (self && rows() > m_fixedRows)
        Q_EMIT gridActivated();
}

// Returns the row that an arrow or page key moves to, from the moving end of the selection.
std::optional<int> FlexGrid::rowOfKey(const QKeyEvent *event) const {
    const int from = event->modifiers().testFlag(Qt::ShiftModifier) ? rowSel() : row();
    const int page = std::max(viewport()->height() / std::max(verticalHeader()->defaultSectionSize(), 1) - 1, 1);
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Up:
        return nearestShown(from, -1);
    case Qt::Key_Down:
        return nearestShown(from, 1);
    case Qt::Key_PageUp:
        return nearestShown(from, -page);
    case Qt::Key_PageDown:
        return nearestShown(from, page);
    case Qt::Key_Home:
        return control ? std::optional(nearestShown(m_fixedRows, 0)) : std::nullopt;
    case Qt::Key_End:
        return control ? std::optional(nearestShown(rows(), 0)) : std::nullopt;
    default:
        return std::nullopt;
    }
}

void FlexGrid::copySelection() const {
    const auto [first, last] = std::minmax({row(), rowSel()});
    QString copied;
    for (int row = first; row >= 0 && row <= last; row = shownRow(row, 1)) {
        QStringList cells;
        for (int column = 0; column < columns(); ++column)
            if (!isColumnHidden(column))
                cells.append(text(row, column));
        copied += platform::tabSeparated(cells) + u'\n';
    }
    QGuiApplication::clipboard()->setText(copied);
}

void FlexGrid::keyPressEvent(QKeyEvent *event) {
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->modifiers().testFlag(Qt::AltModifier)) {
        event->ignore();
        return;
    }
    if (const std::optional<int> row = rowOfKey(event)) {
        if (shift)
            return extendByUser(*row);
        return moveByUser(nearestRow(*row), m_column);
    }
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return;
    }
    const int key = event->key();
    if (key == Qt::Key_Left || key == Qt::Key_Right)
        moveColumnByUser(key == Qt::Key_Left ? -1 : 1, 1);
    else if (key == Qt::Key_Home || key == Qt::Key_End)
        moveColumnByUser(key == Qt::Key_Home ? -1 : 1, columns());
    else if (key == Qt::Key_Menu || (key == Qt::Key_F10 && shift))
        Q_EMIT menuKeyPressed();
    else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !event->isAutoRepeat())
        Q_EMIT gridActivated(); // a key held down since the previous editor would open the next one
    else if (key != Qt::Key_Return && key != Qt::Key_Enter)
        event->ignore();
}

void FlexGrid::keyReleaseEvent(QKeyEvent *event) {
    if (!event->isAutoRepeat())
        Q_EMIT keyReleased(event->key());
}

} // namespace widgets
