// The hands of a person at the X server: its keyboard, its mouse, and what a window manager is asked for. Every call
// comes back when the server has done it; what the program makes of it comes later.
#pragma once

#include <QChar>
#include <QPoint>
#include <QSize>
#include <QString>
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

} // namespace tour
