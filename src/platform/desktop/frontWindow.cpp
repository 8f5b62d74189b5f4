#include "platform/desktop/frontWindow.h"
#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace platform {

// A window whose parent or transient parent is the modal window, at any depth, is not blocked.
bool isBlocked(const QWidget *widget) {
    const QWidget *modal = QApplication::activeModalWidget();
    const QWidget *opener = widget->window();
    const QWindow *place = opener->windowHandle();
    if (modal && place && modal->windowHandle() && modal->windowHandle()->isAncestorOf(place))
        return false;
    while (modal && opener && opener != modal)
        opener = opener->parentWidget();
    return modal && opener != modal;
}

QWidget *windowInFront() {
    QWidget *active = QApplication::activeWindow();
    return active && !isBlocked(active) ? active : QApplication::activeModalWidget();
}

} // namespace platform
