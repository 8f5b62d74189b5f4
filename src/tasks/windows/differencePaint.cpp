#include "tasks/windows/differencePaint.h"
#include "tasks/changeWords.h"
#include "widgets/styleTokens.h"
#include <QEvent>
#include <QPainter>

using namespace Qt::StringLiterals;
using widgets::Surface;

namespace tasks {

namespace {

constexpr qsizetype shownBefore = 8;      // characters before the first difference, if the beginning does not fit
constexpr qsizetype longestText = 20'000; // characters shown of a content

struct Piece {
    qsizetype from = 0;
    qsizetype size = 0;
    bool differs = false;
};

// Cuts a text at its parts, from `begin` on.
std::vector<Piece> piecesOf(qsizetype size, const std::vector<Part> &parts, qsizetype begin) {
    std::vector<Piece> pieces;
    qsizetype at = begin;
    for (const Part &part : parts) {
        if (part.from > at)
            pieces.push_back({at, part.from - at, false});
        pieces.push_back({part.from, part.size, true});
        at = part.from + part.size;
    }
    if (at < size)
        pieces.push_back({at, size - at, false});
    return pieces;
}

Surface surfaceOf(bool isBefore) {
    return isBefore ? Surface::Error : Surface::Done;
}

QFont markedFont(QFont font, bool isBefore) {
    font.setStrikeOut(isBefore);
    font.setUnderline(!isBefore);
    return font;
}

} // namespace

void DifferenceDelegate::paintText(QPainter *painter, const QRect &place, const QStyleOptionViewItem &option,
                                   const QModelIndex &index, const QString &text) const {
    const bool isBefore = index.column() == m_before;
    const QString other = index.siblingAtColumn(isBefore ? m_after : m_before).data().toString();
    if ((!isBefore && index.column() != m_after) || index.siblingAtColumn(0).data().toString().isEmpty())
        return FlexGridDelegate::paintText(painter, place, option, index, text);
    const Difference found = isBefore ? difference(text, other) : difference(other, text);
    const std::vector<Part> &parts = isBefore ? found.gone : found.made;
    const QFontMetrics metrics = painter->fontMetrics();
    const qsizetype first = parts.empty() ? 0 : parts[0].from;
    const bool fits = metrics.horizontalAdvance(text.left(first + shownBefore)) <= place.width();
    const qsizetype begin = fits ? 0 : std::max<qsizetype>(first - shownBefore, 0);
    const QFont plain = painter->font();
    const QPen ink = painter->pen();
    int left = place.left();
    const auto draw = [&](const QString &words, bool differs) {
        const int width = metrics.horizontalAdvance(words);
        const QRect box(left, place.top(), std::min(width, place.right() + 1 - left), place.height());
        const widgets::SurfaceLook &look = widgets::look(surfaceOf(isBefore));
        if (differs)
            painter->fillRect(box.adjusted(0, 3, 0, -3), widgets::colour(look.fill, option.palette));
        painter->setPen(differs ? QPen(widgets::colour(look.ink, option.palette)) : ink);
        painter->setFont(differs ? markedFont(plain, isBefore) : plain);
        painter->drawText(box, int(Qt::AlignVCenter | Qt::AlignLeft) | int(Qt::TextSingleLine),
                          width > box.width() ? metrics.elidedText(words, Qt::ElideRight, box.width()) : words);
        left += width;
    };
    if (begin > 0)
        draw(u"…"_s, false);
    for (const Piece &piece : piecesOf(text.size(), parts, begin))
        if (left <= place.right())
            draw(text.mid(piece.from, piece.size), piece.differs);
}

DifferenceText::DifferenceText(const QString &objectName, QWidget *parent)
    : QTextEdit(parent) {
    setObjectName(objectName);
    setReadOnly(true);
}

void DifferenceText::show(const QString &before, const QString &after, const QString &note) {
    m_before = before.left(longestText);
    m_after = after.left(longestText);
    m_note = note;
    clear();
    const Difference found = difference(m_before, m_after);
    QTextCursor cursor(document());
    const auto write = [&](const QString &label, const QString &text, const std::vector<Part> &parts, bool isBefore) {
        if (text.isEmpty())
            return;
        if (!document()->isEmpty())
            cursor.insertBlock();
        QTextCharFormat plain, marked;
        plain.setForeground(palette().color(QPalette::Text));
        const widgets::SurfaceLook &look = widgets::look(surfaceOf(isBefore));
        marked.setForeground(widgets::colour(look.ink, palette()));
        marked.setBackground(widgets::colour(look.fill, palette()));
        marked.setFontStrikeOut(isBefore);
        marked.setFontUnderline(!isBefore);
        cursor.insertText(label, plain);
        for (const Piece &piece : piecesOf(text.size(), parts, 0))
            cursor.insertText(text.mid(piece.from, piece.size), piece.differs ? marked : plain);
    };
    write(u"改前　"_s, m_before, found.gone, true);
    write(u"改后　"_s, m_after, found.made, false);
    write({}, m_note, {}, false);
    moveCursor(QTextCursor::Start);
}

void DifferenceText::changeEvent(QEvent *event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        show(m_before, m_after, m_note);
}

} // namespace tasks
