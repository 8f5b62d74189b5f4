// Paints the cells of a grid. A selected row keeps the backgrounds set for its cells, since they carry a meaning (the
// current record is red); a band in the highlight colour above and below then shows the selection. The current cell has
// a frame while the grid has the focus. The contents of a disabled grid stay legible.
#pragma once

#include <QColor>
#include <QStyledItemDelegate>

namespace widgets {

// Converts a 24-bit number with red in the low byte; higher bits are ignored.
QColor colourFromNumber(quint32 number);
// Returns black or white, the one with more contrast to the background.
QColor legibleOn(const QColor &background);

class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    // Shows the whole text of a cell as a tool tip if it does not fit.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace widgets
