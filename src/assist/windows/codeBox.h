// The box for a code in the assistants' windows.
#pragma once

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

} // namespace assist
