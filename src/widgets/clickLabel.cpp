#include "widgets/clickLabel.h"
#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace widgets {

namespace {
constexpr int padding = 3; // between text and frame, in addition to the width of the frame
}

ClickLabel::ClickLabel(const QString &objectName, const QString &text, Look look, QWidget *parent)
    : QAbstractButton(parent)
    , m_look(look) {
    setObjectName(objectName);
    setText(text);
    setAccessibleName(text);
    if (look == Look::Raised)
        return;
    setForegroundRole(QPalette::WindowText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred); // like the plain labels in its row
    m_textFlags = Qt::AlignLeft | Qt::AlignVCenter;
}

QSize ClickLabel::sizeHint() const {
    const QSize words(fontMetrics().horizontalAdvance(text()), fontMetrics().height());
    if (m_look == Look::Underlined)
        return words;
    const int border = 2 * (padding + style()->pixelMetric(QStyle::PM_DefaultFrameWidth));
    return words + QSize(2 * border, border);
}

void ClickLabel::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    const QString shown = m_painted.isEmpty() ? text() : m_painted;
    if (m_look == Look::Underlined)
        return painter.drawItemText(rect(), m_textFlags, palette(), isEnabled(), shown, foregroundRole());
    QStyleOptionButton button;
    button.initFrom(this);
    if (isDown())
        button.state |= QStyle::State_Sunken;
    painter.drawPrimitive(QStyle::PE_PanelButtonCommand, button);
    painter.drawItemText(rect(), m_textFlags, palette(), isEnabled(), shown, foregroundRole());
}

void ClickLabel::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void ClickLabel::underline(bool on) {
    QFont underlined = font();
    underlined.setUnderline(on && m_look == Look::Underlined);
    setFont(underlined);
}

void ClickLabel::enterEvent(QEnterEvent *) {
    underline(true);
}
void ClickLabel::leaveEvent(QEvent *) {
    underline(false);
}
void ClickLabel::focusInEvent(QFocusEvent *event) {
    underline(true);
    QAbstractButton::focusInEvent(event);
}
void ClickLabel::focusOutEvent(QFocusEvent *event) {
    underline(false);
    QAbstractButton::focusOutEvent(event);
}

} // namespace widgets
