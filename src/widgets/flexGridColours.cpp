#include "widgets/flexGridColours.h"
#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace widgets {

namespace {
constexpr int bandWidth = 2;
constexpr int lineDarkness = 125;
constexpr int textMargins = 8;
} // namespace

QColor colourFromNumber(quint32 number) {
    return QColor(int(number & 0xFF), int(number >> 8 & 0xFF), int(number >> 16 & 0xFF));
}

QColor legibleOn(const QColor &background) {
    const int luminance = (299 * background.red() + 587 * background.green() + 114 * background.blue()) / 1000;
    return luminance >= 128 ? Qt::black : Qt::white;
}

void FlexGridDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->backgroundBrush.style() != Qt::NoBrush)
        option->state &= ~QStyle::State_Selected;
}

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant background = index.data(Qt::BackgroundRole);
    if (!background.isValid())
        return;
    const QRect &cell = option.rect;
    const QColor highlight = option.palette.color(QPalette::Highlight);
    if (option.state & QStyle::State_Selected) {
        painter->fillRect(cell.left(), cell.top(), cell.width(), bandWidth, highlight);
        painter->fillRect(cell.left(), cell.bottom() + 1 - bandWidth, cell.width(), bandWidth, highlight);
    } else { // the view's own grid lines are as grey as grey cells
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
