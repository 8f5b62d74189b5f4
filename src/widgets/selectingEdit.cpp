#include "widgets/selectingEdit.h"
#include <QFocusEvent>
#include <utility>

namespace widgets {

SelectingEdit::SelectingEdit(const QString &objectName, QWidget *parent)
    : QLineEdit(parent) {
    setObjectName(objectName);
}

void SelectingEdit::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void SelectingEdit::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    m_selectOnRelease = false;
}

void SelectingEdit::mouseReleaseEvent(QMouseEvent *event) {
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(m_selectOnRelease, false) && !hasSelectedText())
        selectAll();
}

} // namespace widgets
