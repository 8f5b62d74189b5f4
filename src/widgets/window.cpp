#include "widgets/window.h"
#include "platform/desktop/screenSize.h"
#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <utility>

namespace widgets {

Window::Window(const QString &objectName, const QString &caption, QWidget *parent)
    : QDialog(parent) {
    setObjectName(objectName);
    setWindowTitle(caption);
    setAccessibleName(caption); // the toolkit names only windows with a frame of the desktop
    connect(this, &QWidget::windowTitleChanged, this, &QWidget::setAccessibleName);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    setWindowFlag(Qt::WindowMinimizeButtonHint, true);
}

void Window::showEvent(QShowEvent *event) {
    if (isWindow() && !event->spontaneous() && !isMaximized()) {
        scrollIfTooLarge();
        resize(size().boundedTo(platform::usableScreenSize(this)));
        m_placed = false;
    }
    QDialog::showEvent(event);
}

bool Window::event(QEvent *event) {
    const bool done = QDialog::event(event);
    if ((event->type() == QEvent::LayoutRequest || (event->type() == QEvent::Resize && !isWindow())) && isVisible()) {
        scrollIfTooLarge(); // a part of the window may have been shown, or its frame in the main window is small
    } else if (event->type() == QEvent::WindowActivate && isWindow() && !isMaximized() &&
               !std::exchange(m_placed, true)) {
        platform::keepOnScreen(this); // the frame is known only after the window manager has shown the window
    }
    return done;
}

void Window::scrollIfTooLarge() {
    const QSize room = isWindow() ? platform::usableScreenSize(this) : size();
    if (!layout() || layout()->totalMinimumSize().boundedTo(room) == layout()->totalMinimumSize())
        return;
    const QPointer<QWidget> focused = focusWidget();
    auto *contents = new QWidget;
    contents->setLayout(layout()); // with the controls in it
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(contents);
    setMinimumSize(0, 0);
    setLayout(new QVBoxLayout);
    layout()->setContentsMargins(0, 0, 0, 0);
    layout()->addWidget(area);
    area->lower(); // below the widgets laid over the contents
    const auto follow = [area](QWidget *, QWidget *now) {
        if (now && area->isAncestorOf(now))
            area->ensureWidgetVisible(now);
    };
    connect(qApp, &QApplication::focusChanged, area, follow);
    if (focused) {
        area->setVisible(isVisible()); // now, because a control that is not visible cannot take the focus back
        focused->setFocus();
        QMetaObject::invokeMethod( // after the contents are laid out
            area, [this, follow] { follow(nullptr, focusWidget()); }, Qt::QueuedConnection);
    }
    if (isWindow())
        resize((size() + QSize(area->verticalScrollBar()->sizeHint().width(), 0)).boundedTo(room));
    if (isWindow() && isVisible())
        platform::keepOnScreen(this);
}

void Window::closeEvent(QCloseEvent *event) {
    if (!queryUnload()) {
        event->ignore();
        return;
    }
    Q_EMIT unloaded();
}

void Window::hideEvent(QHideEvent *event) {
    QDialog::hideEvent(event);
    // If several windows close at once, a window manager may leave all of them without the focus.
    if (isModal() && !event->spontaneous() && parentWidget() && parentWidget()->isVisible())
        parentWidget()->window()->activateWindow();
}

} // namespace widgets
