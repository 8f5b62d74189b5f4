#include "widgets/choiceList.h"
#include <QKeyEvent>
#include <QScrollBar>

namespace widgets {

ChoiceList::ChoiceList(const QString &objectName, const QString &accessibleName, QWidget *parent)
    : QListWidget(parent) {
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    connect(this, &QListWidget::itemDoubleClicked, this,
            [this](const QListWidgetItem *item) { Q_EMIT chosen(item->text()); });
}

void ChoiceList::tellKeys(const QString &words) {
    m_keys = new KeyLine(words, this);
    setViewportMargins(0, 0, 0, m_keys->room());
}

void ChoiceList::fill(const QStringList &lines, int current) {
    const QSignalBlocker quiet(this);
    clear();
    addItems(lines);
    setCurrentRow(current);
}

void ChoiceList::offer() {
    show();
    raise();
    setFocus();
}

void ChoiceList::dismiss() {
    hide();
    fill({});
}

QSize ChoiceList::fullSize() const {
    const int border = 2 * frameWidth();
    return {sizeHintForColumn(0) + border + verticalScrollBar()->sizeHint().width(),
            sizeHintForRow(0) * count() + border + (m_keys ? m_keys->room() : 0)};
}

void ChoiceList::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT cancelled();
        event->setAccepted(!isVisible()); // if the list stays visible, the key is passed on to the window
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentItem())
            Q_EMIT chosen(currentItem()->text());
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void ChoiceList::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::RightButton)
        Q_EMIT cancelled();
    else
        QListWidget::mousePressEvent(event);
}

void ChoiceList::focusOutEvent(QFocusEvent *event) {
    QListWidget::focusOutEvent(event);
    Q_EMIT left();
}

} // namespace widgets
