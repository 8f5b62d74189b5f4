// The title bar and the frame of a window inside the main window.
#include "widgets/stylePaint.h"
#include "widgets/stylePainters.h"
#include <QStyleOption>
#include <array>

namespace widgets {

namespace {

void paintMinimum(QPainter &painter, const QRectF &box) {
    painter.drawLine(box.bottomLeft(), box.bottomRight());
}
void paintMaximum(QPainter &painter, const QRectF &box) {
    painter.drawRect(box);
}
void paintNormal(QPainter &painter, const QRectF &box) {
    constexpr double shift = 2;
    painter.drawRect(box.adjusted(0, shift, -shift, 0));
    painter.drawPolyline(
        QPolygonF({box.topLeft() + QPointF(shift, 0), box.topRight(), box.bottomRight() - QPointF(0, shift)}));
}
void paintClose(QPainter &painter, const QRectF &box) {
    painter.drawLine(box.topLeft(), box.bottomRight());
    painter.drawLine(box.topRight(), box.bottomLeft());
}

struct TitleButton {
    QStyle::SubControl part;
    void (*paint)(QPainter &painter, const QRectF &box);
};
constexpr auto titleButtons = std::to_array<TitleButton>({
    {QStyle::SC_TitleBarMinButton, paintMinimum},
    {QStyle::SC_TitleBarMaxButton, paintMaximum},
    {QStyle::SC_TitleBarNormalButton, paintNormal},
    {QStyle::SC_TitleBarCloseButton, paintClose},
});

void paintTitleButton(const Work &work, const QStyleOptionTitleBar &bar, const TitleButton &button) {
    const QRect rect = work.style.subControlRect(QStyle::CC_TitleBar, &bar, button.part, work.widget);
    if (!rect.isValid() || !(bar.subControls & button.part))
        return;
    const bool held = bar.activeSubControls & button.part;
    const QColor fill = colour(held ? Colour::Pressed : Colour::Base, bar.palette);
    paintPanel(&work.painter, rect, fill, fill, cornerRadius / 2.0);
    const double side = rect.height() / 3.0;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(rect).center());
    const Brushwork brush(&work.painter);
    work.painter.setBrush(Qt::NoBrush);
    work.painter.setPen(QPen(colour(Colour::SecondInk, bar.palette), 1.3));
    button.paint(work.painter, box);
}

} // namespace

void paintTitleBar(const Work &work, const QStyleOptionTitleBar &bar) {
    const QPalette &palette = bar.palette;
    const bool active = bar.titleBarState & QStyle::State_Active;
    work.painter.fillRect(bar.rect, colour(Colour::Base, palette));
    work.painter.fillRect(bar.rect.left(), bar.rect.bottom(), bar.rect.width(), 1, colour(Colour::Hairline, palette));
    QRect words = work.style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, work.widget);
    const QRect sign = work.style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarSysMenu, work.widget);
    if (bar.subControls & QStyle::SC_TitleBarSysMenu && sign.isValid() && !bar.icon.isNull()) {
        const int side = bar.fontMetrics.height();
        const QRect place(bar.rect.left() + side / 2, bar.rect.center().y() - side / 2, side, side);
        bar.icon.paint(&work.painter, place);
        words.setLeft(place.right() + side / 2);
    }
    work.painter.setPen(colour(active ? Colour::Ink : Colour::FaintInk, palette));
    work.painter.drawText(words, int(Qt::AlignVCenter) | int(Qt::AlignLeft),
                          bar.fontMetrics.elidedText(bar.text, Qt::ElideRight, words.width()));
    for (const TitleButton &button : titleButtons)
        paintTitleButton(work, bar, button);
}

void paintWindowFrame(const Work &work) {
    work.painter.setPen(colour(Colour::Edge, work.option.palette));
    work.painter.setBrush(Qt::NoBrush);
    work.painter.drawRect(work.option.rect.adjusted(0, 0, -1, -1));
}

} // namespace widgets
