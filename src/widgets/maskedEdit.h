// A line edit whose mask can be changed at any time. A mask such as "####-##-##" shows the prompt "_" for each digit
// and fixes the other characters; without a mask any text is accepted. The text includes the prompts: "2005-03-__".
// When the focus returns from a menu or another window, the selection is unchanged.
#pragma once

#include "widgets/selectingEdit.h"

namespace widgets {

class MaskedEdit : public SelectingEdit {
    Q_OBJECT
public:
    explicit MaskedEdit(const QString &objectName, QWidget *parent = nullptr);

    // "#" stands for a digit; "" removes the mask. Clears the text.
    void setMask(const QString &mask);
    QString mask() const { return m_mask; }

    // The text as shown, including prompts. With a mask, setText() sets each digit at its own position and leaves a
    // prompt where `text` has no digit.
    QString text() const { return displayText(); }
    void setText(const QString &text);

Q_SIGNALS:
    // The focus moved to another control of the window. Not emitted when a menu opens or another window is activated.
    void left();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QString m_mask;
    bool m_leaving = false;
};

} // namespace widgets
