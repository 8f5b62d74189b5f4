// Scroll bars, progress bars, splitters, the bars of the main window, the headings of columns.
#include "widgets/stylePaint.h"
#include "widgets/stylePainters.h"
#include <QMenuBar>
#include <QStyleOption>
#include <QToolBar>
#include <algorithm>

namespace widgets {

namespace {

constexpr int thumbMargin = 3;

QRect slimmed(const QRect &rect) {
    const int height = std::min(slimBar, rect.height());
    return {rect.left(), rect.top() + (rect.height() - height) / 2, rect.width(), height};
}

} // namespace

QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part, int leastSlider) {
    const bool across = bar.orientation == Qt::Horizontal;
    const int length = across ? bar.rect.width() : bar.rect.height();
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    const int slider = range <= 0 ? length
                                  : std::clamp(int(qint64(length) * bar.pageStep / (range + bar.pageStep)),
                                               std::min(leastSlider, length), length);
    const int start =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - slider, bar.upsideDown);
    const auto piece = [&](int from, int size) {
        return across ? QRect(bar.rect.left() + from, bar.rect.top(), size, bar.rect.height())
                      : QRect(bar.rect.left(), bar.rect.top() + from, bar.rect.width(), size);
    };
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return piece(start, slider);
    case QStyle::SC_ScrollBarSubPage:
        return piece(0, start);
    case QStyle::SC_ScrollBarAddPage:
        return piece(start + slider, length - start - slider);
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    default: // there are no buttons at the ends
        return {};
    }
}

void paintScrollBar(const Work &work, const QStyleOptionSlider &bar) {
    const QPalette &palette = bar.palette;
    work.painter.fillRect(bar.rect, colour(Colour::Window, palette));
    if (bar.maximum <= bar.minimum || !work.is(QStyle::State_Enabled))
        return;
    const QRect thumb = work.style.subControlRect(QStyle::CC_ScrollBar, &bar, QStyle::SC_ScrollBarSlider, work.widget)
                            .adjusted(thumbMargin, thumbMargin, -thumbMargin, -thumbMargin);
    const bool held = bar.activeSubControls & QStyle::SC_ScrollBarSlider && bar.state & QStyle::State_MouseOver;
    const QColor ink = colour(held || work.is(QStyle::State_Sunken) ? Colour::SecondInk : Colour::Edge, palette);
    paintPanel(&work.painter, thumb, ink, ink, std::min(thumb.width(), thumb.height()) / 2.0);
}

void paintGroove(const Work &work) {
    const QColor fill = colour(Colour::Hairline, work.option.palette);
    paintPanel(&work.painter, slimmed(work.option.rect), fill, fill, slimBar / 2.0);
}

bool paintProgress(const Work &work) {
    const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(&work.option);
    if (!bar || bar->maximum <= bar->minimum)
        return false;
    QRect done = slimmed(bar->rect);
    const double share = double(bar->progress - bar->minimum) / (double(bar->maximum) - bar->minimum);
    done.setWidth(qRound(done.width() * std::clamp(share, 0.0, 1.0)));
    if (done.width() < slimBar)
        return true;
    const QColor fill = colour(Colour::Accent, bar->palette);
    paintPanel(&work.painter, done, fill, fill, slimBar / 2.0);
    return true;
}

void paintSplitter(const Work &work) {
    constexpr int gripLength = 24, gripWidth = 3;
    const QRect &rect = work.option.rect;
    const bool upright = rect.height() > rect.width();
    const QSize size = upright ? QSize(gripWidth, gripLength) : QSize(gripLength, gripWidth);
    const QRect grip(rect.center() - QPoint(size.width(), size.height()) / 2, size);
    const bool held = work.is(QStyle::State_MouseOver) || work.is(QStyle::State_Sunken);
    const QColor fill = colour(held ? Colour::Accent : Colour::Hairline, work.option.palette);
    paintPanel(&work.painter, grip, fill, fill, gripWidth / 2.0);
}

// The hairline is on the side of the contents.
void paintBar(const Work &work) {
    const QRect &rect = work.option.rect;
    const QPalette &palette = work.option.palette;
    work.painter.fillRect(rect, colour(Colour::Window, palette));
    if (qobject_cast<const QMenuBar *>(work.widget))
        return;
    const int line = qobject_cast<const QToolBar *>(work.widget) ? rect.bottom() : rect.top();
    work.painter.fillRect(rect.left(), line, rect.width(), 1, colour(Colour::Hairline, palette));
}

void paintSeparator(const Work &work) {
    const QRect &rect = work.option.rect;
    const QColor line = colour(Colour::Hairline, work.option.palette);
    if (work.is(QStyle::State_Horizontal))
        work.painter.fillRect(rect.center().x(), rect.top() + 4, 1, rect.height() - 8, line);
    else
        work.painter.fillRect(rect.left() + 4, rect.center().y(), rect.width() - 8, 1, line);
}

void paintHeading(const Work &work) {
    const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(&work.option);
    const QRect &rect = work.option.rect;
    const SurfaceLook &looks = look(Surface::Heading);
    const QColor line = colour(looks.edge, work.option.palette);
    work.painter.fillRect(rect, colour(looks.fill, work.option.palette));
    work.painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, line);
    const bool last = !header || header->position == QStyleOptionHeader::End ||
                      header->position == QStyleOptionHeader::OnlyOneSection;
    if (!last)
        work.painter.fillRect(rect.right(), rect.top() + 4, 1, rect.height() - 8, line);
}

bool paintHeadingText(const Work &work) {
    const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(&work.option);
    if (!header || !header->icon.isNull())
        return false;
    QPalette palette = header->palette;
    palette.setColor(QPalette::ButtonText, colour(look(Surface::Heading).ink, palette));
    work.style.drawItemText(&work.painter, header->rect, int(header->textAlignment), palette, true, header->text,
                            QPalette::ButtonText);
    return true;
}

} // namespace widgets
