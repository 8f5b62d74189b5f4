#include "app/windows/handbookKey.h"
#include "platform/desktop/frontWindow.h"
#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace app {

namespace {

// Returns the names from the focused control outwards. If the focus is in the frame itself, starts at the current list
// window.
QStringList namesFrom(QWidget *window) {
    QWidget *inner = window->focusWidget() ? window->focusWidget() : window;
    const auto *area = window->findChild<QMdiArea *>();
    const QMdiSubWindow *list = area ? area->currentSubWindow() : nullptr;
    if (list && (inner == list || !list->isAncestorOf(inner)))
        inner = list->widget();
    QStringList names;
    for (const QWidget *at = inner; at; at = at->parentWidget())
        names.append(at->objectName());
    return names;
}

} // namespace

HandbookKey::HandbookKey(platform::Host &host)
    : m_host(host) {
    qApp->installEventFilter(this);
}

void HandbookKey::open() {
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close(); // it has grabbed the keyboard
    QWidget *front = platform::windowInFront();
    if (!front)
        return;
    if (!m_handbook)
        m_handbook = std::make_unique<handbook::frmHandbook>(m_host);
    for (const QWidget *at = front; at; at = at->parentWidget())
        if (at == m_handbook.get())
            return;
    m_handbook->openBefore(
        front, handbook::placeOf(namesFrom(front)).value_or(handbook::Place{handbook::firstPage.toString(), {}}));
}

bool HandbookKey::eventFilter(QObject *watched, QEvent *event) {
    if ((event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) || !watched->isWidgetType())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress && !key->isAutoRepeat())
        open();
    return true;
}

} // namespace app
