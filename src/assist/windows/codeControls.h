// What the assistants' windows are made of: the box for a code and the label above it.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <functional>

namespace assist {

// A box of a few characters. Typed characters go through onKey first, also those that an input method hands over at the
// end of a composition; a composition under way is no key press.
class CodeBox : public QLineEdit {
    Q_OBJECT
public:
    CodeBox(const QString &objectName, int width, QWidget *parent);

    void makeEditable(); // coloured, reachable
    void makeFixed();    // grey, out of reach
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    // Whether the key is used up; otherwise the box takes it. 13 stands for Enter.
    std::function<bool(char16_t key)> onKey;

Q_SIGNALS:
    void entered();
    void left(); // to another control; a switch to another window or to the box's own menu leaves nothing
    void listWanted();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    int m_width;
};

class CodeLabel : public QLabel {
    Q_OBJECT
public:
    // Long captions are broken into two lines.
    CodeLabel(const QString &objectName, const QString &caption, QWidget *parent);
    void makeClickable() { m_clickable = true; }

Q_SIGNALS:
    void clicked();

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void mark(bool on);
    bool m_clickable = false;
};

} // namespace assist
