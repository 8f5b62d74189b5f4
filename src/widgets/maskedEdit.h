// A one-line box whose mask can change while it is used. A mask such as "####-##-##" shows a prompt "_" for each digit
// and keeps the other characters where they are; without a mask it takes any text. What it holds is what it shows,
// prompts included: "2005-03-__". It selects its whole text when it gets the focus.
#pragma once

#include <QLineEdit>

namespace widgets {

class MaskedEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit MaskedEdit(const QString &objectName, QWidget *parent = nullptr);

    // "#" stands for a digit; "" takes the mask away. The text is emptied.
    void setMask(const QString &mask);
    QString mask() const { return m_mask; }

    // As shown, prompts included. With a mask, setText() goes place by place and prompts where no digit stands.
    QString text() const { return displayText(); }
    void setText(const QString &text);

Q_SIGNALS:
    // The focus goes to another control of the window; not when a menu opens or another program comes to the front.
    void left();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QString m_mask;
    bool m_selectOnRelease = false; // the click that brought the focus would undo the selection
    bool m_leaving = false;
};

} // namespace widgets
