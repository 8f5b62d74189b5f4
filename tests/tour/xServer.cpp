#include "tour/xServer.h"
#include <QList>
#include <QStringList>
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <cstdio>
#include <cstdlib>

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

    void press(KeyCode code, bool down) const { XTestFakeKeyEvent(display, code, down, CurrentTime); }

    // A window manager takes its orders from messages to the root window; any other window gets its own.
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

    // A property of 32-bit numbers; Xlib hands them out as longs.
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
    // A window may go before the server hears what it is asked about it: that is no reason to end.
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });
    m_connection = std::make_unique<Connection>();
    if (!m_connection->display) {
        std::fputs("no X server\n", stderr);
        std::exit(2);
    }
}

XServer::~XServer() = default;

bool XServer::key(const QString &chord) {
    Display *display = m_connection->display;
    QList<KeyCode> codes;
    const QStringList names = chord.split(u'+');
    for (const QString &name : names)
        codes.append(XKeysymToKeycode(display, symbolOf(name)));
    if (codes.contains(0))
        return false;
    for (const KeyCode code : codes)
        m_connection->press(code, true);
    for (qsizetype i = codes.size(); i-- > 0;)
        m_connection->press(codes[i], false);
    XSync(display, False);
    return true;
}

bool XServer::type(QChar character) {
    Display *display = m_connection->display;
    const KeySym symbol = character.unicode(); // the same for all of Latin 1
    const KeyCode code = XKeysymToKeycode(display, symbol);
    const KeyCode shift = XKeysymToKeycode(display, XK_Shift_L);
    const bool shifted = XkbKeycodeToKeysym(display, code, 0, 0) != symbol;
    if (code == 0)
        return false;
    if (shifted)
        m_connection->press(shift, true);
    m_connection->press(code, true);
    m_connection->press(code, false);
    if (shifted)
        m_connection->press(shift, false);
    XSync(display, False);
    return true;
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

} // namespace tour
