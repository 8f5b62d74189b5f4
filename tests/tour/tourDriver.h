// Drives the real windows of the program in a real X server, from a thread of its own: moves the pointer, presses keys
// and buttons through the server, looks at the windows, saves numbered pictures, and counts what is not as it should
// be. Every look at a widget happens in the thread of the windows. Keys and clicks wait until the window in front has
// the keyboard, and come back when the program has dealt with them, so that a look behind them is no race; what the
// window manager has to do with (a window in front, the place of the keyboard behind a closed one) is waited for.
#pragma once

#include "tour/xServer.h"
#include <QObject>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <atomic>
#include <functional>

namespace tour {

class TourDriver {
public:
    // Pictures go into `folder`, which exists.
    explicit TourDriver(const QString &folder);

    // Runs the function in the thread of the windows and gives its result.
    template <class Function>
    auto look(Function function) {
        using Value = decltype(function());
        if constexpr (std::is_void_v<Value>) {
            invoke([&] { function(); });
        } else {
            Value value{};
            invoke([&] { value = function(); });
            return value;
        }
    }

    // A visible widget by its name, in the front-most window that has one; "ZSKListFrm/Grid1" asks for the one within
    // a named window of the frame. Only inside look().
    static QWidget *find(const QString &name);
    template <class Widget>
    static Widget *find(const QString &name) {
        return qobject_cast<Widget *>(find(name));
    }

    // Waits until the condition, looked at in the thread of the windows, holds; a failure after half a minute.
    bool waitUntil(const QString &what, const std::function<bool()> &condition, int milliseconds = 30000);
    // In front, with the keyboard; takes its picture when that has a name.
    bool waitForWindow(const QString &name, const QString &picture = {});
    bool waitUntilGone(const QString &name);
    bool waitForFocus(const QString &name);

    // What a control shows as text, whatever its kind.
    QString textOf(const QString &name);
    // Waits until the control shows that text.
    bool waitForText(const QString &name, const QString &text, int milliseconds = 30000);
    QString cell(const QString &grid, int row, int column);
    int rows(const QString &grid);
    void clickCell(const QString &grid, int row, int column, int button = 1, int times = 1);

    void click(const QString &name, int button = 1);
    bool open(const QString &button, const QString &window, const QString &picture = {}); // which the button opens
    void leave(const QString &chord, const QString &window);                              // which the key closes
    // Opens a menu of the main window and chooses an item, both by the mouse.
    void openMenu(const QString &menu, const QString &item);
    void clickAt(const QPoint &global, int button = 1, int times = 1);
    void drag(const QPoint &from, const QPoint &to);
    // Keys or chords as the X server names them, one behind the other: "Return", "alt+s shift+Down".
    void key(const QString &chords, int times = 1);
    // The same for another program, once that has taken the keyboard away.
    void keyElsewhere(const QString &chord);
    void type(const QString &text);
    int strokes() const { return m_strokes; } // keys and chords pressed so far

    // Waits for a message box with that text, takes its picture when it has a name, and presses the key.
    void answerBox(const QString &text, const QString &key, const QString &picture = {});
    // Waits for any message box and gives its text; the box stays.
    QString boxText();

    // Of the whole screen, once it has come to rest; and in windows/, under the bare name, of the window in front. A
    // text of that window that its label or button has no room for is a fault.
    void shot(const QString &name);
    void expect(bool holds, const QString &what);
    void expectEqual(const QString &is, const QString &shouldBe, const QString &what);
    int failures() const { return m_failures + m_cutTexts; }

    void programStarts() { m_ended = false; }
    // The program has come to its end: from here on nothing can be looked at, and waits end at once.
    void programEnded() { m_ended = true; }
    bool waitForEnd(int milliseconds = 30000);

    XServer &server() { return m_server; }
    // Comes back when the program has dealt with all that the server has sent it until now.
    void settle();

private:
    void invoke(const std::function<void()> &function);
    void waitForKeyboard(const QString &what);
    void moveTo(const QPoint &global);
    void keepFront(const QString &name, const QImage &screen);
    void press(int button, bool inside); // whether a window of the program lies there

    XServer m_server;
    Arrivals m_arrivals;
    quint32 m_marks = 0;
    QString m_folder;
    std::atomic_bool m_ended = false;
    int m_pictures = 0;
    int m_strokes = 0;
    std::atomic_int m_failures = 0; // told by either thread
    int m_cutTexts = 0;             // nothing else goes wrong by these
};

} // namespace tour
