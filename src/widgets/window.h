// Common behaviour of all windows: Esc, the close button of the frame and the window's own buttons close it in the same
// way. A window is never larger than its screen, or its frame in the main window: contents that need more room scroll.
#pragma once

#include <QDialog>

namespace widgets {

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
    bool event(QEvent *event) override;         // keeps the contents and the frame on the screen
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override; // a modal window activates its parent

private:
    void scrollIfTooLarge();

    bool m_placed = false; // since it was last shown
};

} // namespace widgets
