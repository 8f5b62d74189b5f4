// Shows a text box as it is or as a catalogue card: 12.5 by 7.5 cm, with a hairline and the hole for the rod of the
// card tray. The card is as large as the space allows.
#pragma once

#include "widgets/textBox.h"

namespace card {

class CardFace final : public QWidget {
    Q_OBJECT
public:
    // Takes the box as its child.
    CardFace(widgets::TextBox *text, QWidget *parent);

    void showAsCard(bool card);
    QSize sizeHint() const override { return m_text->sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QRect card() const;
    void place();

    widgets::TextBox *m_text;
    bool m_isCard = false;
};

} // namespace card
