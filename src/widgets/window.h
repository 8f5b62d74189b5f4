// What every window of the program has in common: one way of closing for the close cross, Esc and its own buttons, and
// buttons that take the focus before they act, so that the field that is left does what it does on being left. After an
// access key they give it back: the keys of the grid or the field go on working.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QPushButton>

namespace widgets {

// Whether a modal window stands before the widget's own. A key that comes before the window manager has put that window
// in front finds the one behind it active still, and the toolkit sends it its shortcuts: there a second window would
// open, or the one behind would close under it.
bool isBlocked(const QWidget *widget);

class Button : public QPushButton {
    Q_OBJECT
public:
    // objectName is the control's name; the caption may hold an access key as "&S 停止".
    Button(const QString &objectName, const QString &caption, QWidget *parent = nullptr);

    // A long caption stands clear of the edges; where a screen is too narrow for that, the caption itself is whole.
    QSize sizeHint() const override { return QPushButton::sizeHint().expandedTo({captionWidth(3), 0}); }
    QSize minimumSizeHint() const override { return {captionWidth(2), QPushButton::sizeHint().height()}; }

protected:
    // An access key moves the focus here, clicks, and moves it back, unless the click has moved it elsewhere.
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Enter clicks, as the space bar does

private:
    void clickByKey();
    int captionWidth(int characters) const; // with so many narrow ones as room at both edges together
};

class Window : public QDialog {
    Q_OBJECT
public:
    explicit Window(const QString &objectName, const QString &caption, QWidget *parent = nullptr);

    // The window's own way of closing, for its buttons; the same as the close cross and Esc.
    void unload() { close(); }
    void reject() override { unload(); }

Q_SIGNALS:
    void unloaded();

protected:
    // Whether the window may close now; asks what it has to ask. The default lets it go.
    virtual bool queryUnload() { return true; }
    void showEvent(QShowEvent *event) override; // no larger than the screen has room for
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override; // gives the keyboard back to the window behind
};

// Waits until the object goes, with the wait cursor on the window or, where none is given, on the whole screen. There a
// wait inside another one ends both.
class WaitCursor {
public:
    WaitCursor();
    explicit WaitCursor(QWidget *window);
    ~WaitCursor();
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;

    void leaveOn() { m_onScreen = false; } // until the end of the wait around this one

private:
    QPointer<QWidget> m_window;
    bool m_onScreen = false;
};

} // namespace widgets
