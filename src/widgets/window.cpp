#include "widgets/window.h"
#include "platform/desktop/screenSize.h"
#include <QCloseEvent>

namespace widgets {

Window::Window(const QString &objectName, const QString &caption, QWidget *parent)
    : QDialog(parent) {
    setObjectName(objectName);
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    setWindowFlag(Qt::WindowMinimizeButtonHint, true);
}

void Window::showEvent(QShowEvent *event) {
    if (isWindow() && !event->spontaneous() && !isMaximized()) {
        resize(size().boundedTo(platform::usableScreenSize(this)));
        // The frame is known only after the window manager has shown the window.
        QMetaObject::invokeMethod(
            this, [this] { platform::keepOnScreen(this); }, Qt::QueuedConnection);
    }
    QDialog::showEvent(event);
}

void Window::closeEvent(QCloseEvent *event) {
    if (!queryUnload()) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT unloaded();
}

void Window::hideEvent(QHideEvent *event) {
    QDialog::hideEvent(event);
    // If several windows close at once, a window manager may leave all of them without the focus.
    if (isModal() && !event->spontaneous() && parentWidget() && parentWidget()->isVisible())
        parentWidget()->window()->activateWindow();
}

} // namespace widgets
