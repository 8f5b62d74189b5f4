#include "widgets/flexGridColours.h"
#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

namespace widgets {

namespace {
constexpr int bandWidth = 2;
constexpr int lineDarkness = 125;
constexpr int textMargins = 8;

// Relative luminance as defined by WCAG: 0 is black, 1 is white.
double relativeLuminance(const QColor &colour) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

void paintFocus(QPainter *painter, const QRect &cell, const QColor &background) {
    painter->save();
    painter->setPen(QPen(legibleOn(background), bandWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->drawRect(cell.adjusted(1, 1, -1, -1));
    painter->restore();
}
} // namespace

QColor colourFromNumber(quint32 number) {
    return QColor(int(number & 0xFF), int(number >> 8 & 0xFF), int(number >> 16 & 0xFF));
}

QColor legibleOn(const QColor &background) {
    const double luminance = relativeLuminance(background);
    const double onWhite = 1.05 / (luminance + 0.05), onBlack = (luminance + 0.05) / 0.05;
    return onBlack >= onWhite ? Qt::black : Qt::white;
}

void FlexGridDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->backgroundBrush.style() != Qt::NoBrush)
        option->state &= ~QStyle::State_Selected;
    option->state |= QStyle::State_Enabled;
}

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant background = index.data(Qt::BackgroundRole);
    const QRect &cell = option.rect;
    // The row stays marked while an editor is open over a disabled grid.
    const bool outOfReach = option.widget && !option.widget->isEnabled();
    const QColor highlight =
        option.palette.color(outOfReach ? QPalette::Active : option.palette.currentColorGroup(), QPalette::Highlight);
    const bool focus = option.state & QStyle::State_HasFocus;
    if (!background.isValid()) {
        if (focus)
            paintFocus(painter, cell,
                       option.state & QStyle::State_Selected ? highlight : option.palette.base().color());
        return;
    }
    if (focus) {
        paintFocus(painter, cell, background.value<QBrush>().color());
    } else if (option.state & QStyle::State_Selected) {
        painter->fillRect(cell.left(), cell.top(), cell.width(), bandWidth, highlight);
        painter->fillRect(cell.left(), cell.bottom() + 1 - bandWidth, cell.width(), bandWidth, highlight);
    } else { // the view's grid lines have the grey of grey cells
        painter->fillRect(cell.left(), cell.bottom(), cell.width(), 1,
                          background.value<QBrush>().color().darker(lineDarkness));
    }
}

bool FlexGridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) {
    if (event->type() == QEvent::ToolTip && view->toolTip().isEmpty()) {
        const QString text = index.data(Qt::DisplayRole).toString();
        const bool cut = option.fontMetrics.horizontalAdvance(text) + textMargins > option.rect.width();
        QToolTip::showText(event->globalPos(), cut ? QString(u"<qt>" + text.toHtmlEscaped() + u"</qt>") : QString(),
                           view->viewport(), option.rect);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace widgets
