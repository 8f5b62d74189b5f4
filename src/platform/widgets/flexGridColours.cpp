#include "platform/widgets/flexGridColours.h"
#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace platform {

namespace {
constexpr int kFrameWidth = 2;
constexpr int kTextMargins = 8;
} // namespace

QColor colourFromNumber(quint32 number) {
    return QColor(static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
                  static_cast<int>(number >> 16 & 0xFF));
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
    if (!(option.state & QStyle::State_Selected) || !index.data(Qt::BackgroundRole).isValid())
        return;
    painter->save();
    painter->setPen(
        QPen(option.palette.color(QPalette::Highlight), kFrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

bool FlexGridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) {
    if (event->type() == QEvent::ToolTip && view->toolTip().isEmpty()) {
        const QString text = index.data(Qt::DisplayRole).toString();
        const bool cut = option.fontMetrics.horizontalAdvance(text) + kTextMargins > option.rect.width();
        QToolTip::showText(event->globalPos(), cut ? QString(u"<qt>" + text.toHtmlEscaped() + u"</qt>") : QString(),
                           view->viewport(), option.rect);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace platform
