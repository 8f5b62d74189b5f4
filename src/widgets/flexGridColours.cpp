#include "widgets/flexGridColours.h"
#include "widgets/stylePaint.h"
#include <QHelpEvent>
#include <QTableView>
#include <QToolTip>

namespace widgets {

namespace {

constexpr int lineDarkness = 118;

// A cell to paint, with the data for its painters.
struct Cell {
    const QStyleOptionViewItem &option;
    const QModelIndex &index;
    QVariant background; // invalid if the cell has none of its own

    bool isSelected() const { return option.state & QStyle::State_Selected; }
    // The row stays marked while an editor is open over a disabled grid.
    bool isLively() const { return !option.widget || option.widget->hasFocus() || !option.widget->isEnabled(); }
    QColor ownColour() const { return background.value<QBrush>().color(); }
    QColor token(Colour name) const { return colour(name, option.palette); }
    // A background set for a cell is the same in both schemes, and so are the marks on it.
    QPalette marks() const { return background.isValid() ? schemePalette(Scheme::Light) : option.palette; }
};

bool isFirstShown(const Cell &cell) {
    const auto *view = qobject_cast<const QTableView *>(cell.option.widget);
    int first = 0;
    while (view && first < cell.index.column() && view->isColumnHidden(first))
        ++first;
    return first == cell.index.column();
}

void paintBack(QPainter &painter, const Cell &cell, bool lineAbove) {
    const QRect &rect = cell.option.rect;
    const Surface surface = !cell.isSelected() ? Surface::Row
                            : cell.isLively()  ? Surface::SelectedRow
                                               : Surface::QuietRow;
    const bool own = cell.background.isValid();
    if (own)
        painter.fillRect(rect, cell.ownColour());
    else if (surface != Surface::Row)
        painter.fillRect(rect, cell.token(look(surface).fill));
    if (lineAbove)
        painter.fillRect(rect.left(), rect.top(), rect.width(), 1,
                         own ? cell.ownColour().darker(lineDarkness) : cell.token(Colour::Hairline));
    if (!cell.isSelected())
        return;
    const QColor mark = colour(cell.isLively() ? Colour::Accent : Colour::Edge, cell.marks());
    if (own) {
        painter.fillRect(rect.left(), rect.top(), rect.width(), focusWidth, mark);
        painter.fillRect(rect.left(), rect.bottom() + 1 - focusWidth, rect.width(), focusWidth, mark);
    }
    if (cell.isLively() && isFirstShown(cell))
        painter.fillRect(rect.left(), rect.top(), accentBarWidth, rect.height(), mark);
}

// The line inside the ring separates it from a background on which the ring itself is hard to see.
void paintRing(QPainter &painter, const Cell &cell) {
    const QRect &rect = cell.option.rect;
    if (cell.background.isValid()) {
        painter.setPen(colour(Colour::Base, cell.marks()));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect.adjusted(focusWidth, focusWidth, -focusWidth - 1, -focusWidth - 1));
    }
    paintFocusRing(&painter, rect, cell.marks(), 0);
}

// Returns the place of the mark and removes it from that of the text.
QRect cutMark(QRect &text, bool atEnd, const QFontMetrics &metrics) {
    const int side = metrics.ascent() * 4 / 5, gap = space(Space::Small, metrics) * 3 / 4;
    QRect mark(0, 0, side, side);
    mark.moveCenter(text.center());
    if (atEnd) {
        mark.moveRight(text.right());
        text.setRight(mark.left() - gap);
    } else {
        mark.moveLeft(text.left());
        text.setLeft(mark.right() + gap);
    }
    return mark;
}

} // namespace

QColor colourFromNumber(quint32 number) {
    return QColor(int(number & 0xFF), int(number >> 8 & 0xFF), int(number >> 16 & 0xFF));
}

QColor legibleOn(const QColor &background) {
    const QColor black(Qt::black), white(Qt::white);
    return contrast(background, black) >= contrast(background, white) ? black : white;
}

QRect FlexGridDelegate::textRect(const QStyleOptionViewItem &option) {
    const int padding = space(Space::Small, option.fontMetrics) - 1;
    return option.rect.adjusted(padding, 0, -padding, 0);
}

void FlexGridDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->font = cellFont(option->font, index);
    option->fontMetrics = QFontMetrics(option->font);
}

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const Cell cell{option, index, index.data(Qt::BackgroundRole)};
    paintBack(*painter, cell, hasLineAbove(index));
    const QString text = index.data(Qt::DisplayRole).toString();
    QRect place = textRect(option);
    if (const auto mark = markOf(index))
        paintMark(painter, cutMark(place, mark->atEnd, option.fontMetrics), mark->mark, cell.marks());
    if (!text.isEmpty()) {
        painter->setFont(cellFont(option.font, index));
        painter->setPen(cell.background.isValid() ? legibleOn(cell.ownColour()) : cell.token(Colour::Ink));
        paintText(painter, place, option, index, text);
    }
    if (option.state & QStyle::State_HasFocus)
        paintRing(*painter, cell);
}

void FlexGridDelegate::paintText(QPainter *painter, const QRect &place, const QStyleOptionViewItem &,
                                 const QModelIndex &index, const QString &text) const {
    const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    painter->drawText(place, int(alignment) | int(Qt::TextSingleLine),
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

bool FlexGridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) {
    if (event->type() == QEvent::ToolTip && view->toolTip().isEmpty()) {
        const QString text = index.data(Qt::DisplayRole).toString();
        const QFontMetrics metrics(cellFont(option.font, index));
        const bool cut = metrics.horizontalAdvance(text) > textRect(option).width();
        QToolTip::showText(event->globalPos(), cut ? QString(u"<qt>" + text.toHtmlEscaped() + u"</qt>") : QString(),
                           view->viewport(), option.rect);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace widgets
