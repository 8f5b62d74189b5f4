// A label that acts on a click; one that takes the focus also on Enter and the space bar.
#pragma once

#include <QAbstractButton>

namespace widgets {

class ClickLabel final : public QAbstractButton {
    Q_OBJECT
public:
    enum class Look {
        Raised,     // sunken while pressed
        Underlined, // while the mouse is over it or the keyboard on it
    };
    // Named after its text; set another accessible name where the text is no word.
    ClickLabel(const QString &objectName, const QString &text, Look look, QWidget *parent = nullptr);

    // How the text lies in the label: an alignment and Qt::TextFlag.
    void setTextFlags(int flags) { m_textFlags = flags; }
    QSize sizeHint() const override; // of the text in one line

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
};

} // namespace widgets
