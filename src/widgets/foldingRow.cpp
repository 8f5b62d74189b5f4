#include "widgets/foldingRow.h"
#include <QStyle>
#include <algorithm>

namespace widgets {

FoldingRow::FoldingRow(std::initializer_list<Item> groups)
    : QBoxLayout(LeftToRight) {
    fill(this, groups);
}

QSize FoldingRow::sizeOf(Lines lines, QSize (QLayoutItem::*size)() const) const {
    const QStyle *style = parentWidget() ? parentWidget()->style() : nullptr;
    const bool one = lines == Lines::One;
    const auto metric = one ? QStyle::PM_LayoutHorizontalSpacing : QStyle::PM_LayoutVerticalSpacing;
    const int gap = style ? style->pixelMetric(metric, nullptr, parentWidget()) : 0;
    QSize sum(0, 0);
    for (int at = 0; at < count(); ++at) {
        const QSize item = (itemAt(at)->*size)();
        const int before = at > 0 ? gap : 0;
        sum = one ? QSize(sum.width() + before + item.width(), std::max(sum.height(), item.height()))
                  : QSize(std::max(sum.width(), item.width()), sum.height() + before + item.height());
    }
    return sum;
}

FoldingRow::Lines FoldingRow::linesFor(int width) const {
    return width < sizeOf(Lines::One, &QLayoutItem::minimumSize).width() ? Lines::OneForEach : Lines::One;
}

QSize FoldingRow::sizeHint() const {
    return sizeOf(Lines::One, &QLayoutItem::sizeHint);
}

QSize FoldingRow::minimumSize() const {
    const Lines now = direction() == LeftToRight ? Lines::One : Lines::OneForEach;
    return {sizeOf(Lines::OneForEach, &QLayoutItem::minimumSize).width(),
            sizeOf(now, &QLayoutItem::minimumSize).height()};
}

int FoldingRow::heightForWidth(int width) const {
    return sizeOf(linesFor(width), &QLayoutItem::sizeHint).height();
}

void FoldingRow::setGeometry(const QRect &place) {
    const Direction wanted = linesFor(place.width()) == Lines::One ? LeftToRight : TopToBottom;
    if (wanted != direction()) // a new direction starts another layout of the window
        setDirection(wanted);
    QBoxLayout::setGeometry(place);
}

} // namespace widgets
