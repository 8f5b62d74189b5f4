// A push button that takes the focus before it acts, so that the control that had the focus is left first. After an
// access key the focus returns to that control.
#pragma once

#include <QPushButton>

namespace widgets {

class Button : public QPushButton {
    Q_OBJECT
public:
    // `objectName` is the name of the control. The caption may have an access key, such as "&S 停止".
    Button(const QString &objectName, const QString &caption, QWidget *parent = nullptr);

    // Marks the primary action of the window, for the style. At most one button of a window is marked.
    void markPrimary() { setProperty("primary", true); }

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

} // namespace widgets
