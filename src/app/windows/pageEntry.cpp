#include "app/windows/pageEntry.h"
#include "widgets/lineIcon.h"
#include "widgets/stylePaint.h"
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::Colour;
using widgets::colour;

namespace app {

PageEntry::PageEntry(const QString &objectName, const QString &caption, const QString &icon, QWidget *parent)
    : Button(objectName, caption, parent) {
    setFlat(true);
    setIcon(widgets::lineIcon(icon));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PageEntry::setDetail(const QString &detail) {
    m_detail = detail;
    setAccessibleDescription(detail);
}

PageEntry::Words PageEntry::words() const {
    Words words{.caption = text(), .detail = m_detail};
    if (words.caption.startsWith(u'&') && !words.caption.startsWith(u"&&")) {
        words.key = words.caption.sliced(1, 1);
        words.caption = words.caption.sliced(2).trimmed();
    }
    words.caption.replace(u"&&"_s, u"&"_s);
    const qsizetype colon = words.caption.indexOf(u'：');
    if (words.detail.isEmpty() && colon >= 0) {
        words.detail = words.caption.sliced(colon + 1);
        words.caption.truncate(colon);
    }
    return words;
}

int PageEntry::padding() const {
    return widgets::space(widgets::Space::Small, fontMetrics());
}

QSize PageEntry::sizeHint() const {
    const Words shown = words();
    const int line = fontMetrics().height();
    const int key = shown.key.isEmpty() ? 0 : 2 * line;
    const int words = std::max(fontMetrics().horizontalAdvance(text()), fontMetrics().horizontalAdvance(shown.detail));
    const int height = shown.detail.isEmpty() ? line * 3 / 2 : 2 * line;
    return {line * 3 / 2 + words + key + 4 * padding(), height + padding()};
}

void PageEntry::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    const Words shown = words();
    const int line = fontMetrics().height(), side = line * 3 / 2;
    icon().paint(&painter, QRect(padding(), (height() - side) / 2, side, side));
    QRect text = rect().adjusted(2 * padding() + side, 0, -padding(), 0);
    if (!shown.key.isEmpty()) {
        const QRect cap(text.right() + 1 - line * 3 / 2, (height() - line * 5 / 4) / 2, line * 3 / 2, line * 5 / 4);
        widgets::paintPanel(&painter, cap, colour(Colour::QuietTint, palette()), colour(Colour::Hairline, palette()),
                            widgets::cornerRadius / 2.0);
        painter.setPen(colour(Colour::SecondInk, palette()));
        painter.drawText(cap, Qt::AlignCenter, shown.key);
        text.setRight(cap.left() - padding());
    }
    const auto draw = [&](const QRect &place, const QString &words, Colour ink) {
        painter.setPen(colour(ink, palette()));
        painter.drawText(place, int(Qt::AlignVCenter) | int(Qt::AlignLeft),
                         fontMetrics().elidedText(words, Qt::ElideMiddle, place.width()));
    };
    if (shown.detail.isEmpty())
        return draw(text, shown.caption, Colour::Ink);
    const int top = (height() - 2 * line) / 2;
    draw(QRect(text.left(), top, text.width(), line), shown.caption, Colour::Ink);
    draw(QRect(text.left(), top + line, text.width(), line), shown.detail, Colour::FaintInk);
}

} // namespace app
