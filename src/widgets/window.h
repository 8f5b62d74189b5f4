// Common behaviour of all windows: Esc, the close button of the frame and the window's own buttons close it in the same
// way, and a button takes the focus before it acts, so that the control that had the focus is left first. After an
// access key the focus returns to that control.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QPushButton>

namespace widgets {

// Returns whether a modal window blocks the window of `widget`. Before the window manager has activated a new modal
// window, the blocked window is still active and Qt sends it shortcuts, which must not open a second window or close
// the blocked window.
bool isBlocked(const QWidget *widget);

class Button : public QPushButton {
    Q_OBJECT
public:
    // `objectName` is the name of the control. The caption may have an access key, such as "&S 停止".
    Button(const QString &objectName, const QString &caption, QWidget *parent = nullptr);

    // The preferred width leaves a margin around a long caption; the minimum width still shows the whole caption.
    QSize sizeHint() const override { return QPushButton::sizeHint().expandedTo({captionWidth(3), 0}); }
    QSize minimumSizeHint() const override { return {captionWidth(2), QPushButton::sizeHint().height()}; }

protected:
    // An access key moves the focus here, clicks, and moves the focus back unless the click moved it elsewhere.
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Enter clicks, like the space bar

private:
    void clickByKey();
    int captionWidth(int characters) const; // including `characters` average characters of margin in total
};

class Window : public QDialog {
    Q_OBJECT
public:
    explicit Window(const QString &objectName, const QString &caption, QWidget *parent = nullptr);

    // Closes the window like the close button of the frame and Esc do; for its buttons.
    void unload() { close(); }
    void reject() override { unload(); }

Q_SIGNALS:
    void unloaded();

protected:
    // Returns whether the window may close now; may ask the user. The default returns true.
    virtual bool queryUnload() { return true; }
    void showEvent(QShowEvent *event) override; // limits the size to the screen
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override; // a modal window activates its parent
};

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
