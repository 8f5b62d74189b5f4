// A one-line box whose mask can change while it is used. A mask such as "####-##-##" shows a prompt "_" for each digit
// and keeps the other characters where they are; without a mask it takes any text. What it holds is what it shows,
// prompts included: "2005-03-__". Back from a menu or another window its selection is as it was.
#pragma once

#include "widgets/selectingEdit.h"

namespace widgets {

class MaskedEdit : public SelectingEdit {
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

private:
    QString m_mask;
    bool m_leaving = false;
};

} // namespace widgets
