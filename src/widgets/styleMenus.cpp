// Entries of menus and of the menu bar.
#include "widgets/stylePaint.h"
#include "widgets/stylePainters.h"
#include <QStyleOption>
#include <algorithm>

namespace widgets {

namespace {

void paintMenuSeparator(const Work &work) {
    const QRect &rect = work.option.rect;
    work.painter.fillRect(rect.left(), rect.center().y(), rect.width(), 1,
                          colour(Colour::Hairline, work.option.palette));
}

void paintMenuText(const Work &work, const QStyleOptionMenuItem &item, const QRect &rect) {
    const qsizetype tab = item.text.indexOf(u'\t');
    const int flags = int(Qt::AlignVCenter) | int(Qt::TextSingleLine) | int(Qt::TextShowMnemonic);
    const bool open = work.is(QStyle::State_Enabled);
    work.painter.setFont(item.font);
    work.painter.setPen(colour(open ? Colour::Ink : Colour::FaintInk, item.palette));
    work.painter.drawText(rect, flags | int(Qt::AlignLeft), item.text.left(tab));
    if (tab < 0)
        return;
    work.painter.setPen(colour(Colour::FaintInk, item.palette));
    work.painter.drawText(rect, flags | int(Qt::AlignRight), item.text.mid(tab + 1));
}

} // namespace

QSize menuItemSize(const QStyleOption *option, const QSize &fusion) {
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    const QFontMetrics &metrics = option->fontMetrics;
    if (item && item->menuItemType == QStyleOptionMenuItem::Separator)
        return {fusion.width(), 2 * space(Space::Tight, metrics) + 1};
    return {fusion.width() + 2 * space(Space::Small, metrics),
            std::max(fusion.height(), metrics.height() + 2 * space(Space::Tight, metrics))};
}

void paintMenuItem(const Work &work, const QStyleOptionMenuItem &item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return paintMenuSeparator(work);
    const QPalette &palette = item.palette;
    if (work.is(QStyle::State_Selected) && work.is(QStyle::State_Enabled))
        paintPanel(&work.painter, item.rect, colour(Colour::Tint, palette), colour(Colour::Tint, palette),
                   cornerRadius / 2.0);
    const int side = item.fontMetrics.height(), left = space(Space::Small, item.fontMetrics);
    const QRect mark(item.rect.left() + left / 2, item.rect.center().y() - side / 2, side, side);
    if (item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked)
        paintSign(&work.painter, mark, Sign::Tick, colour(Colour::Accent, palette));
    else if (!item.icon.isNull())
        item.icon.paint(&work.painter, mark);
    const bool marked = item.menuHasCheckableItems || item.maxIconWidth > 0;
    const int text = marked ? side + left : left;
    paintMenuText(work, item, item.rect.adjusted(text, 0, -2 * left, 0));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        paintSign(&work.painter, QRect(item.rect.right() - side, mark.top(), side, side), Sign::Right,
                  colour(Colour::SecondInk, palette));
}

void paintMenuBarItem(const Work &work, const QStyleOptionMenuItem &item) {
    const QPalette &palette = item.palette;
    work.painter.fillRect(item.rect, colour(Colour::Window, palette));
    if (work.is(QStyle::State_Selected) || work.is(QStyle::State_Sunken))
        paintPanel(&work.painter, item.rect, colour(Colour::Tint, palette), colour(Colour::Tint, palette),
                   cornerRadius / 2.0);
    const int flags = int(Qt::AlignCenter) | int(Qt::TextShowMnemonic) | int(Qt::TextSingleLine);
    work.style.drawItemText(&work.painter, item.rect, flags, palette, work.is(QStyle::State_Enabled), item.text,
                            QPalette::WindowText);
}

} // namespace widgets
