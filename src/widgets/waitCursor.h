// The wait cursor.
#pragma once

#include <QPointer>
#include <QWidget>

namespace widgets {

// Shows the wait cursor during its lifetime, on the window or, without a window, on the whole screen. On the whole
// screen, the end of a nested wait ends the outer wait too.
class WaitCursor {
public:
    WaitCursor();
    explicit WaitCursor(QWidget *window);
    ~WaitCursor();
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;

    void leaveOn() { m_onScreen = false; } // keeps the cursor until the end of the outer wait

private:
    QPointer<QWidget> m_window;
    bool m_onScreen = false;
};

} // namespace widgets
