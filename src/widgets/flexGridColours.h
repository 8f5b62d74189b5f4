// How cells are painted. A background of a cell's own is kept where the row is selected, since it says something (the
// current record is red); the selection then shows as a band of the highlight colour above and below. The current cell
// has a frame while the grid has the keyboard. What a grid shows stays legible while it is out of reach.
#pragma once

#include <QColor>
#include <QStyledItemDelegate>

namespace widgets {

// From a 24-bit number with red in the low byte; higher bits are passed over.
QColor colourFromNumber(quint32 number);
// Black or white, whichever has more contrast to the background.
QColor legibleOn(const QColor &background);

class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    // A cell whose text does not fit tells it whole.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace widgets
