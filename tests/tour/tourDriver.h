// Drives the real windows of the program in a real X server, from a thread of its own: moves the pointer, presses keys
// and buttons through the server, looks at the windows, saves numbered pictures, and counts what is not as it should
// be. Every look at a widget happens in the thread of the windows.
#pragma once

#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>
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

    // Waits until the condition, looked at in the thread of the windows, holds; a failure after ten seconds.
    bool waitUntil(const QString &what, const std::function<bool()> &condition, int milliseconds = 10000);
    bool waitForWindow(const QString &name);
    bool waitUntilGone(const QString &name);

    // What a control shows as text, whatever its kind.
    QString textOf(const QString &name);
    // Waits until the control shows that text.
    bool waitForText(const QString &name, const QString &text, int milliseconds = 10000);
    QString cell(const QString &grid, int row, int column);
    int rows(const QString &grid);
    void clickCell(const QString &grid, int row, int column, int button = 1, int times = 1);

    void click(const QString &name, int button = 1);
    // Opens a menu of the main window and chooses an item, both by the mouse.
    void openMenu(const QString &menu, const QString &item);
    void clickAt(const QPoint &global, int button = 1, int times = 1);
    void drag(const QPoint &from, const QPoint &to);
    // A key or chord as the X server's tools name it: "Return", "alt+s", "shift+Down".
    void key(const QString &chord, int times = 1);
    void type(const QString &text);

    // Waits for a message box with that text, takes its picture when it has a name, and presses the key.
    void answerBox(const QString &text, const QString &key, const QString &picture = {});
    // Waits for any message box and gives its text; the box stays.
    QString boxText();

    void shot(const QString &name);
    void expect(bool holds, const QString &what);
    void expectEqual(const QString &is, const QString &shouldBe, const QString &what);
    int failures() const { return m_failures; }

    void programStarts() { m_ended = false; }
    // The program has come to its end: from here on nothing can be looked at, and waits end at once.
    void programEnded() { m_ended = true; }
    bool waitForEnd(int milliseconds = 10000);

private:
    void invoke(const std::function<void()> &function);
    void xdotool(const QStringList &arguments);

    QString m_folder;
    std::atomic_bool m_ended = false;
    int m_pictures = 0;
    int m_failures = 0;
};

} // namespace tour
