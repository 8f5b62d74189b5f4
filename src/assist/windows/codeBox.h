// The edit for a code in the assistants' windows.
#pragma once

#include <QLineEdit>
#include <functional>

namespace assist {

// An edit for a few characters. Typed characters are passed to onKey first, including those that an input method
// commits if all of them are printable ASCII. Text still being composed is not passed.
class CodeBox : public QLineEdit {
    Q_OBJECT
public:
    CodeBox(const QString &objectName, int width, QWidget *parent);

    void makeEditable(); // coloured and enabled
    void makeFixed();    // grey and disabled
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    // Returns whether the key is consumed; otherwise the edit handles it. 13 stands for Enter.
    std::function<bool(char16_t key)> onKey;

Q_SIGNALS:
    void entered();
    void left(); // to another control; not to another window or the context menu
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
