#include "widgets/clickLabel.h"
#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStyleOptionFrame>
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
    setFocusPolicy(Qt::StrongFocus);
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
    if (m_look == Look::Underlined)
        return painter.drawItemText(rect(), m_textFlags, palette(), isEnabled(), text(), foregroundRole());
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    frame.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    frame.frameShape = QFrame::Panel;
    painter.drawControl(QStyle::CE_ShapedFrame, frame);
    painter.drawItemText(isDown() ? rect().translated(1, 1) : rect(), m_textFlags, palette(), isEnabled(), text(),
                         foregroundRole());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(padding, padding, -padding, -padding);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
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
