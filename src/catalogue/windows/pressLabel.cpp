#include "catalogue/windows/pressLabel.h"
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyleOptionFrame>

namespace catalogue {

namespace {
constexpr int padding = 3; // between text and frame, beside the frame's own width
}

PressLabel::PressLabel(const QString &objectName, const QString &caption, QWidget *parent)
    : QAbstractButton(parent) {
    setObjectName(objectName);
    setText(caption);
    setAccessibleName(caption);
    setFocusPolicy(Qt::StrongFocus);
}

QSize PressLabel::sizeHint() const {
    const int border = 2 * (padding + style()->pixelMetric(QStyle::PM_DefaultFrameWidth));
    return {fontMetrics().horizontalAdvance(text()) + 2 * border, fontMetrics().height() + border};
}

void PressLabel::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    frame.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    frame.frameShape = QFrame::Panel;
    style()->drawControl(QStyle::CE_ShapedFrame, &frame, &painter, this);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(isDown() ? rect().translated(1, 1) : rect(), Qt::AlignCenter, text());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(padding, padding, -padding, -padding);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void PressLabel::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace catalogue
