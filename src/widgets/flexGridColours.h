// Paints the cells of a grid. A selected row is tinted, with a bar at its left if the grid has the focus. It keeps the
// backgrounds set for its cells, since they carry a meaning (the current record is red); lines above and below then
// show the selection. The current cell has the focus ring while the grid has the focus. The contents of a disabled grid
// stay legible, and its row stays marked.
#pragma once

#include "widgets/stylePaint.h"
#include <QColor>
#include <QStyledItemDelegate>
#include <optional>

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
    // Returns whether a hairline separates the row from the one above it.
    virtual bool hasLineAbove(const QModelIndex &index) const { return index.row() > 0; }
    virtual QFont cellFont(const QFont &plain, const QModelIndex &) const { return plain; }
    // A mark next to the text of a cell, which gets the remaining space.
    struct CellMark {
        Mark mark;
        bool atEnd; // after the text, at the right edge of the cell
    };
    virtual std::optional<CellMark> markOf(const QModelIndex &) const { return {}; }
    // Paints the text of a cell, which is not empty. The font and the pen are set.
    virtual void paintText(QPainter *painter, const QRect &place, const QStyleOptionViewItem &option,
                           const QModelIndex &index, const QString &text) const;
    // The place of the text in a cell without a mark.
    static QRect textRect(const QStyleOptionViewItem &option);
};

} // namespace widgets
