// Drives the real windows of the program on a real X server from a separate thread: moves the pointer, presses keys and
// buttons through the server, examines the windows, saves numbered pictures and counts failures. Widgets are accessed
// only in the GUI thread. Keys and clicks wait until the window in front has the keyboard and return after the program
// has processed them, so that a check that follows is not a race. Effects that need the window manager (a window coming
// to the front, the focus after a window closes) must be waited for.
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
    // Saves pictures in `folder`, which must exist.
    explicit TourDriver(const QString &folder);

    // Runs the function in the GUI thread and returns its result.
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

    // Returns a visible widget by its name, from the front-most window that has one, or nullptr; "ZSKListFrm/Grid1"
    // means the one inside a named window of the frame. Only inside look().
    static QWidget *find(const QString &name);
    template <class Widget>
    static Widget *find(const QString &name) {
        return qobject_cast<Widget *>(find(name));
    }

    // Waits until the condition, evaluated in the GUI thread, holds; fails after `milliseconds`.
    bool waitUntil(const QString &what, const std::function<bool()> &condition, int milliseconds = 30000);
    // Waits until the window is in front and has the keyboard; takes a picture if `picture` is not empty.
    bool waitForWindow(const QString &name, const QString &picture = {});
    bool waitUntilGone(const QString &name);
    bool waitForFocus(const QString &name);

    // Returns the text that a control of any kind shows.
    QString textOf(const QString &name);
    // Waits until the control shows that text.
    bool waitForText(const QString &name, const QString &text, int milliseconds = 30000);
    QString cell(const QString &grid, int row, int column);
    int rows(const QString &grid);
    void clickCell(const QString &grid, int row, int column, int button = 1, int times = 1);

    void click(const QString &name, int button = 1);
    bool open(const QString &button, const QString &window, const QString &picture = {}); // opened by the button
    void leave(const QString &chord, const QString &window);                              // closed by the key
    // Opens a menu of the main window and chooses an item, both with the mouse.
    void openMenu(const QString &menu, const QString &item);
    void clickAt(const QPoint &global, int button = 1, int times = 1);
    // Presses keys or chords by their X names, one after the other: "Return", "alt+s shift+Down". Returns the driver,
    // as type() does, for the wait for their effect: driver.key(u"F1"_s).waitForWindow(u"frmHandbook"_s).
    TourDriver &key(const QString &chords, int times = 1);
    // Presses a chord in another program, once that program has the keyboard.
    void keyElsewhere(const QString &chord);
    TourDriver &type(const QString &text);

    // Waits for a message box with that text, takes a picture if `picture` is not empty, and presses the key.
    void answerBox(const QString &text, const QString &key, const QString &picture = {});
    // Waits for any message box and returns its text; the box stays open.
    QString boxText();

    // Takes a picture of the whole screen once it no longer changes and, in windows/, one of the window in front, named
    // without a number. A label or button of that window whose text does not fit is a failure.
    void shot(const QString &name);
    void expect(bool holds, const QString &what);
    void expectEqual(const QString &is, const QString &shouldBe, const QString &what);
    int failures() const { return m_failures + m_cutTexts; }

    void programStarts() { m_ended = false; }
    // Marks the program as ended: from now on nothing can be examined, and waits end at once.
    void programEnded() { m_ended = true; }
    bool waitForEnd(int milliseconds = 30000);

    XServer &server() { return m_server; }
    // Returns after the program has processed everything that the server has sent so far.
    void settle();

private:
    void invoke(const std::function<void()> &function);
    void waitForKeyboard(const QString &what);
    void moveTo(const QPoint &global);
    void keepFront(const QString &name, const QImage &screen);
    void press(int button, bool inside); // `inside`: the position is in a window of the program

    XServer m_server;
    Arrivals m_arrivals;
    quint32 m_marks = 0;
    QString m_folder;
    std::atomic_bool m_ended = false;
    int m_pictures = 0;
    std::atomic_int m_failures = 0; // counted by both threads
    int m_cutTexts = 0;             // counted apart: a cut text causes no other failure
};

} // namespace tour
