#include "filetools/windows/pathBox.h"
#include <QFocusEvent>

namespace filetools {

PathBox::PathBox(const QString &objectName, QWidget *parent)
    : QLineEdit(parent) {
    setObjectName(objectName);
}

void PathBox::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    selectAll();
    m_selectAfterPress = event->reason() == Qt::MouseFocusReason;
}

// The press that brought the focus puts the cursor somewhere and would end the selection.
void PathBox::mousePressEvent(QMouseEvent *event) {
    QLineEdit::mousePressEvent(event);
    if (m_selectAfterPress)
        selectAll();
    m_selectAfterPress = false;
}

} // namespace filetools
