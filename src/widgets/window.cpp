#include "widgets/window.h"
#include "platform/desktop/screenSize.h"
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QShortcutEvent>
#include <QWindow>

namespace widgets {

Button::Button(const QString &objectName, const QString &caption, QWidget *parent)
    : QPushButton(caption, parent) {
    setObjectName(objectName);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAutoDefault(false); // Enter is used by the fields and grids
    QString name = caption;
    setAccessibleName(name.remove(u'&').trimmed());
}

int Button::captionWidth(int characters) const {
    return fontMetrics().size(Qt::TextShowMnemonic, text()).width() + characters * fontMetrics().averageCharWidth();
}

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

bool Button::event(QEvent *event) {
    if (event->type() == QEvent::Shortcut && isBlocked(this))
        return true;
    if (event->type() == QEvent::Shortcut && isEnabled()) {
        // If two buttons of a window have the same access key, the key only moves the focus between them.
        if (static_cast<QShortcutEvent *>(event)->isAmbiguous())
            setFocus(Qt::ShortcutFocusReason);
        else
            clickByKey();
        return true;
    }
    return QPushButton::event(event);
}

void Button::clickByKey() {
    const QPointer<QWidget> former = window()->focusWidget();
    const QPointer<Button> self = this;
    setFocus(Qt::ShortcutFocusReason); // leaving the previous control may disable this button
    if (isEnabled())
        click();
    if (self && former && window()->focusWidget() == this && former->isVisible())
        former->setFocus(Qt::OtherFocusReason);
}

void Button::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

Window::Window(const QString &objectName, const QString &caption, QWidget *parent)
    : QDialog(parent) {
    setObjectName(objectName);
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
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

namespace {
bool screenWaits() {
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}
} // namespace

WaitCursor::WaitCursor()
    : m_onScreen(true) {
    if (!screenWaits())
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::WaitCursor(QWidget *window)
    : m_window(window) {
    m_window->setCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor() {
    if (m_window)
        m_window->unsetCursor();
    if (m_onScreen && screenWaits())
        QGuiApplication::restoreOverrideCursor();
}

} // namespace widgets
