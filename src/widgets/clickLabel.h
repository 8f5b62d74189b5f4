// A label that can be clicked. If it takes the focus, Enter and the space bar click it too.
#pragma once

#include <QAbstractButton>

namespace widgets {

class ClickLabel final : public QAbstractButton {
    Q_OBJECT
public:
    enum class Look {
        Raised,     // sunken while pressed
        Underlined, // while the mouse is over it or it has the focus
    };
    // The accessible name is `text`; set another one if the text is not a word.
    ClickLabel(const QString &objectName, const QString &text, Look look, QWidget *parent = nullptr);

    // Sets the position of the text: an alignment combined with Qt::TextFlag.
    void setTextFlags(int flags) { m_textFlags = flags; }
    // Paints the text with these line breaks.
    void setPaintedText(const QString &text) { m_painted = text; }
    QSize sizeHint() const override; // size of the text in one line

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void underline(bool on);

    Look m_look;
    int m_textFlags = Qt::AlignCenter;
    QString m_painted; // empty: the text itself
};

} // namespace widgets
