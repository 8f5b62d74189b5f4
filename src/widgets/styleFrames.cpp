// Frames, rows of lists, tabs, tips and the focus ring.
#include "widgets/stylePaint.h"
#include "widgets/stylePainters.h"
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QGroupBox>
#include <QStyleOption>
#include <QToolButton>

namespace widgets {

namespace {

// A list without a current cell shows the focus on its frame.
bool ringsItsFrame(const QWidget *widget) {
    const auto *view = qobject_cast<const QAbstractItemView *>(widget);
    return !view || !view->currentIndex().isValid();
}

} // namespace

void paintNothing(const Work &) {}

void paintFrame(const Work &work) {
    const QPalette &palette = work.option.palette;
    const bool scrolls = qobject_cast<const QAbstractScrollArea *>(work.widget);
    const bool open = work.is(QStyle::State_Enabled);
    paintPanel(&work.painter, work.option.rect, Qt::transparent,
               colour(scrolls && open ? Colour::Edge : Colour::Hairline, palette));
    if (scrolls && work.widget->hasFocus() && ringsItsFrame(work.widget))
        paintFocusRing(&work.painter, work.option.rect, palette);
}

// The title is above the frame.
void paintGroupFrame(const Work &work) {
    constexpr int belowTitle = 3; // as in the layout of Fusion
    const auto *group = qobject_cast<const QGroupBox *>(work.widget);
    const bool titled = group && !group->title().isEmpty();
    const int top = titled ? group->fontMetrics().height() + belowTitle : 0;
    paintPanel(&work.painter, work.option.rect.adjusted(0, top, 0, 0), Qt::transparent,
               colour(Colour::Hairline, work.option.palette));
}

void paintFocusRect(const Work &work) {
    if (qobject_cast<const QToolButton *>(work.widget)) // its panel has the ring
        return;
    const bool cell = qobject_cast<const QAbstractItemView *>(work.widget);
    paintFocusRing(&work.painter, work.option.rect, work.option.palette, cell ? 0 : cornerRadius);
}

// Menus and tool tips.
void paintPopup(const Work &work) {
    paintSurface(&work.painter, work.option.rect, Surface::Tip, work.option.palette, 0);
}

void paintItem(const Work &work, const QStyleOptionViewItem &item) {
    if (item.backgroundBrush.style() != Qt::NoBrush)
        work.painter.fillRect(item.rect, item.backgroundBrush);
    if (!work.is(QStyle::State_Selected))
        return;
    const bool focused = work.widget && work.widget->hasFocus();
    const SurfaceLook &looks = look(focused ? Surface::SelectedRow : Surface::QuietRow);
    work.painter.fillRect(item.rect, colour(looks.fill, item.palette));
    if (focused && item.index.column() <= 0)
        work.painter.fillRect(item.rect.left(), item.rect.top(), accentBarWidth, item.rect.height(),
                              colour(Colour::Accent, item.palette));
}

void paintTabFrame(const Work &work) {
    const QRect &rect = work.option.rect;
    work.painter.fillRect(rect.left(), rect.top(), rect.width(), 1, colour(Colour::Hairline, work.option.palette));
}

void paintTab(const Work &work) {
    const QRect &rect = work.option.rect;
    const QPalette &palette = work.option.palette;
    const bool current = work.is(QStyle::State_Selected);
    const QRect inner = rect.adjusted(1, 1, -1, -accentBarWidth);
    if (work.is(QStyle::State_MouseOver) && !current)
        paintPanel(&work.painter, inner, colour(Colour::Hover, palette), colour(Colour::Hover, palette));
    if (current)
        work.painter.fillRect(rect.left(), rect.bottom() + 1 - accentBarWidth, rect.width(), accentBarWidth,
                              colour(Colour::Accent, palette));
    if (work.is(QStyle::State_HasFocus))
        paintFocusRing(&work.painter, inner, palette);
}

void paintArrow(const Work &work, const QStyleOptionHeader &header) {
    const Sign sign = header.sortIndicator == QStyleOptionHeader::SortUp ? Sign::Up : Sign::Down;
    paintSign(&work.painter, work.option.rect, sign, colour(Colour::SecondInk, work.option.palette));
}

} // namespace widgets
