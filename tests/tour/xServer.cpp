#include "tour/xServer.h"
#include <QCoreApplication>
#include <QEvent>
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <cstdio>
#include <cstdlib>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

KeySym symbolOf(const QString &name) {
    if (name == u"alt")
        return XK_Alt_L;
    if (name == u"ctrl")
        return XK_Control_L;
    if (name == u"shift")
        return XK_Shift_L;
    return XStringToKeysym(name.toLatin1().constData());
}

} // namespace

struct XServer::Connection {
    Display *display = XOpenDisplay(nullptr);

    ~Connection() { XCloseDisplay(display); }

    // Presses the keys in order and releases them in reverse order; returns false if a code is not a key.
    bool pressAll(const QList<KeyCode> &codes) const {
        if (codes.contains(0))
            return false;
        for (const KeyCode code : codes)
            XTestFakeKeyEvent(display, code, True, CurrentTime);
        for (qsizetype i = codes.size(); i-- > 0;)
            XTestFakeKeyEvent(display, codes[i], False, CurrentTime);
        XSync(display, False);
        return true;
    }

    // A window manager receives requests as messages to the root window; other windows receive their own.
    void send(Window to, Window about, Atom kind, long mask, long first) const {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = about;
        event.xclient.message_type = kind;
        event.xclient.format = 32;
        event.xclient.data.l[0] = first;
        XSendEvent(display, to, False, mask, &event);
        XSync(display, False);
    }

    // Returns a property of 32-bit numbers; Xlib stores each in a long.
    QList<unsigned long> numbers(Window window, const char *name) const {
        Atom type = 0;
        int bits = 0;
        unsigned long count = 0;
        unsigned long left = 0;
        unsigned char *data = nullptr;
        XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1000, False, AnyPropertyType, &type,
                           &bits, &count, &left, &data);
        if (!data)
            return {};
        const auto *values = reinterpret_cast<const unsigned long *>(data);
        QList<unsigned long> found(values, values + (bits == 32 ? count : 0));
        XFree(data);
        return found;
    }
};

XServer::XServer() {
    // A window may be destroyed before the server handles a request about it: such an error must not end the process.
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });
    m_connection = std::make_unique<Connection>();
    if (!m_connection->display) {
        std::fputs("no X server\n", stderr);
        std::exit(2);
    }
}

XServer::~XServer() = default;

bool XServer::key(const QString &chord) {
    QList<KeyCode> codes;
    const QStringList names = chord.split(u'+');
    for (const QString &name : names)
        codes.append(XKeysymToKeycode(m_connection->display, symbolOf(name)));
    return m_connection->pressAll(codes);
}

bool XServer::type(QChar character) {
    Display *display = m_connection->display;
    const KeySym symbol = character.unicode(); // identical for all of Latin 1
    const KeyCode code = XKeysymToKeycode(display, symbol);
    const bool shifted = XkbKeycodeToKeysym(display, code, 0, 0) != symbol;
    return m_connection->pressAll(shifted ? QList{XKeysymToKeycode(display, XK_Shift_L), code} : QList{code});
}

void XServer::move(const QPoint &place) {
    XTestFakeMotionEvent(m_connection->display, -1, place.x(), place.y(), CurrentTime);
    XSync(m_connection->display, False);
}

void XServer::button(int number, bool down) {
    XTestFakeButtonEvent(m_connection->display, unsigned(number), down, CurrentTime);
    XSync(m_connection->display, False);
}

bool XServer::hasKeyboard(Window window) {
    ::Window focused = None;
    int whenItGoes = 0;
    XGetInputFocus(m_connection->display, &focused, &whenItGoes);
    return focused == window;
}

void XServer::close(Window window) {
    Display *display = m_connection->display;
    m_connection->send(DefaultRootWindow(display), window, XInternAtom(display, "_NET_CLOSE_WINDOW", False),
                       SubstructureRedirectMask | SubstructureNotifyMask, CurrentTime);
}

void XServer::closeWindowsOf(qint64 process) {
    const auto windows = m_connection->numbers(DefaultRootWindow(m_connection->display), "_NET_CLIENT_LIST");
    for (const unsigned long window : windows) {
        if (m_connection->numbers(window, "_NET_WM_PID").value(0) == static_cast<unsigned long>(process))
            close(window);
    }
}

void XServer::resize(Window window, const QSize &size) {
    XResizeWindow(m_connection->display, window, unsigned(size.width()), unsigned(size.height()));
    XSync(m_connection->display, False);
}

void XServer::mark(Window window, const char *name, quint32 number) {
    m_connection->send(window, window, atom(name), NoEventMask, long(number));
}

quint32 XServer::atom(const char *name) {
    return quint32(XInternAtom(m_connection->display, name, False));
}

Arrivals::Arrivals(XServer &server)
    : m_atom(server.atom(message)) {
    m_window.create();
    qApp->installNativeEventFilter(this);
    qApp->installEventFilter(this);
}

// The toolkit has then read the events before the message from the server, and processes them before any call that is
// queued from now on.
bool Arrivals::nativeEventFilter(const QByteArray &eventType, void *event, qintptr *result) {
    Q_UNUSED(eventType)
    Q_UNUSED(result)
    const auto *sent = static_cast<const xcb_client_message_event_t *>(event);
    if ((sent->response_type & 0x7f) != XCB_CLIENT_MESSAGE || sent->type != m_atom)
        return false;
    m_mark = sent->data.data32[0];
    return true;
}

// A window manager may hold a button press back until it has raised the window; messages then arrive before it.
bool Arrivals::eventFilter(QObject *watched, QEvent *event) {
    const QEvent::Type type = event->type();
    if (watched->isWindowType() && (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick))
        ++m_presses;
    return false;
}

} // namespace tour
