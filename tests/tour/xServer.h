// The hands of a person at the X server: its keyboard, its mouse, and what a window manager is asked for. Every call
// comes back when the server has done it; what the program makes of it comes later.
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
    using Window = quintptr; // as QWidget::winId() gives it

    XServer(); // ends the process where there is no server
    ~XServer();
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

    // Presses and lets go a key or chord: "Return", "a", "alt+s", "shift+Down". False where there is no such key.
    bool key(const QString &chord);
    bool type(QChar character);
    void move(const QPoint &place); // in pixels of the screen
    void button(int number, bool down);

    // Whether keys go to this window now; the toolkit may believe so before the window manager has seen to it.
    bool hasKeyboard(Window window);

    // What the close cross and the edge of a window lead to: the window manager is asked.
    void close(Window window);
    void closeWindowsOf(qint64 process);
    void resize(Window window, const QSize &size);
    // Sends the window's owner a message of this name; it lies behind all that the server has sent there until now.
    void mark(Window window, const char *name, quint32 number);
    quint32 atom(const char *name);

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};

// What has come to the windows of all that was sent to them: the last message left by XServer::mark(), and how many
// presses of a mouse button. Lives in the thread of the windows; may be asked from any.
class Arrivals final : public QObject, private QAbstractNativeEventFilter {
public:
    static constexpr const char *message = "_TOUR_MARK";

    explicit Arrivals(XServer &server);

    quintptr window() const { return m_window.winId(); } // where the messages go
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
