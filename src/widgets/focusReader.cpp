#include "widgets/focusReader.h"
#include <QAbstractItemView>
#include <QAccessible>
#include <QCoreApplication>

namespace widgets {

namespace {

void tellCurrent(QAbstractItemView *view) {
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(view);
    QAccessibleInterface *entry = view->hasFocus() && reader ? reader->focusChild() : nullptr;
    if (!entry || entry == reader)
        return;
    QAccessibleEvent focus(entry, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
}

} // namespace

FocusReader::FocusReader() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool FocusReader::eventFilter(QObject *watched, QEvent *event) {
    auto *view = event->type() == QEvent::FocusIn ? qobject_cast<QAbstractItemView *>(watched) : nullptr;
    if (view && QAccessible::isActive())
        QMetaObject::invokeMethod( // after the toolkit has reported the list
            view, [view] { tellCurrent(view); }, Qt::QueuedConnection);
    return false;
}

} // namespace widgets
