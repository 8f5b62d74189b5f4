#include "tour/arrivals.h"
#include "tour/xServer.h"
#include <QCoreApplication>
#include <QEvent>
#include <xcb/xcb.h>

namespace tour {

Arrivals::Arrivals(XServer &server)
    : m_atom(server.atom(message)) {
    m_window.create();
    qApp->installNativeEventFilter(this);
    qApp->installEventFilter(this);
}

// The events in front of the message have then been read from the server, and are dealt with before any call that is
// queued from here on.
bool Arrivals::nativeEventFilter(const QByteArray &eventType, void *event, qintptr *result) {
    Q_UNUSED(eventType)
    Q_UNUSED(result)
    const auto *sent = static_cast<const xcb_client_message_event_t *>(event);
    if ((sent->response_type & 0x7f) != XCB_CLIENT_MESSAGE || sent->type != m_atom)
        return false;
    m_mark = sent->data.data32[0];
    return true;
}

// A window manager may hold a press back until it has raised the window, so that messages overtake it.
bool Arrivals::eventFilter(QObject *watched, QEvent *event) {
    const QEvent::Type type = event->type();
    if (watched->isWindowType() && (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick))
        ++m_presses;
    return false;
}

} // namespace tour
