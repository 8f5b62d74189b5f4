// Keyboard, mouse and window requests through the X server, as a user produces them. Every call returns once the server
// has processed it; the program reacts later.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QSize>
#include <QWindow>
#include <atomic>
#include <memory>

namespace tour {

class XServer {
public:
    using Window = quintptr; // as returned by QWidget::winId()

    XServer(); // ends the process if there is no server
    ~XServer();
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

    // Presses and releases a key or chord: "Return", "a", "alt+s", "shift+Down". Returns false if there is no such key.
    bool key(const QString &chord);
    bool type(QChar character);
    void move(const QPoint &place); // in pixels of the screen
    void button(int number, bool down);

    // Returns whether keys go to this window now; the toolkit may report the focus before that.
    bool hasKeyboard(Window window);

    // Ask the window manager to close or resize a window, as its close button and its edges do.
    void close(Window window);
    void closeWindowsOf(qint64 process);
    void resize(Window window, const QSize &size);
    // Sends a message with this name to the window's owner; it arrives after everything that the server sent before.
    void mark(Window window, const char *name, quint32 number);
    quint32 atom(const char *name);

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};

// Counts what has arrived at the windows: the last message sent by XServer::mark(), and the number of mouse button
// presses. Lives in the GUI thread; may be read from any thread.
class Arrivals final : public QObject, private QAbstractNativeEventFilter {
public:
    static constexpr const char *message = "_TOUR_MARK";

    explicit Arrivals(XServer &server);

    quintptr window() const { return m_window.winId(); } // the target of the messages
    quint32 mark() const { return m_mark; }
    int presses() const { return m_presses; }

private:
    bool nativeEventFilter(const QByteArray &eventType, void *event, qintptr *result) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    QWindow m_window; // never shown
    quint32 m_atom;
    std::atomic<quint32> m_mark = 0;
    std::atomic_int m_presses = 0;
};

} // namespace tour
