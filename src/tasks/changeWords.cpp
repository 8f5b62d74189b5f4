#include "tasks/changeWords.h"
#include "marc/isoLayout.h"
#include "tasks/stepTables.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr qsizetype mostCompared = 40'000; // pairs of characters

void addTo(std::vector<Part> &parts, qsizetype at) {
    if (!parts.empty() && parts.back().from + parts.back().size == at)
        ++parts.back().size;
    else
        parts.push_back({at, 1});
}

// The halves of a character are the same only together.
bool isSameAt(QStringView a, qsizetype i, QStringView b, qsizetype j) {
    if (a[i] != b[j] || !a[i].isSurrogate())
        return a[i] == b[j];
    const int other = a[i].isHighSurrogate() ? 1 : -1;
    return a.mid(i + other, 1) == b.mid(j + other, 1);
}

// Compares the texts character by character; `offset` is the place of both in the whole texts.
Difference compared(QStringView a, QStringView b, qsizetype offset) {
    const size_t width = size_t(b.size()) + 1;
    std::vector<quint16> longest((size_t(a.size()) + 1) * width); // common sequence of the rest of both
    for (qsizetype i = a.size(); i-- > 0;)
        for (qsizetype j = b.size(); j-- > 0;) {
            const size_t at = size_t(i) * width + size_t(j);
            longest[at] = isSameAt(a, i, b, j) ? quint16(longest[at + width + 1] + 1)
                                               : std::max(longest[at + width], longest[at + 1]);
        }
    Difference found;
    qsizetype i = 0, j = 0;
    while (i < a.size() || j < b.size()) {
        const size_t at = size_t(i) * width + size_t(j);
        if (i < a.size() && j < b.size() && isSameAt(a, i, b, j)) {
            ++i;
            ++j;
        } else if (j == b.size() || (i < a.size() && longest[at + width] >= longest[at + 1])) {
            addTo(found.gone, offset + i++);
        } else {
            addTo(found.made, offset + j++);
        }
    }
    return found;
}

} // namespace

QString shownContent(QStringView tag, const QString &content) {
    QString shown = content;
    shown.replace(QChar(marc::subfieldDelimiter), u'$');
    if (tag == leaderTag || tag.startsWith(u"00") || tag.isEmpty())
        return shown;
    const qsizetype indicators = std::min<qsizetype>(marc::indicatorCount, shown.size());
    for (qsizetype i = 0; i < indicators && shown[i] != u'$'; ++i)
        if (shown[i] == u' ')
            shown[i] = u'#';
    return shown;
}

QString shownField(const Change &change) {
    if (change.tag.isEmpty())
        return u"字段次序"_s;
    if (change.tag == leaderTag)
        return u"头标区"_s;
    return change.toTag.isEmpty() ? change.tag : change.tag + u'→' + change.toTag;
}

Difference difference(QStringView before, QStringView after) {
    const qsizetype shorter = std::min(before.size(), after.size());
    qsizetype head = 0, tail = 0;
    while (head < shorter && isSameAt(before, head, after, head))
        ++head;
    while (tail < shorter - head && isSameAt(before, before.size() - 1 - tail, after, after.size() - 1 - tail))
        ++tail;
    const qsizetype goneSize = before.size() - head - tail, madeSize = after.size() - head - tail;
    if (goneSize > 0 && madeSize > 0 && goneSize * madeSize <= mostCompared)
        return compared(before.sliced(head, goneSize), after.sliced(head, madeSize), head);
    Difference found;
    if (goneSize > 0)
        found.gone.push_back({head, goneSize});
    if (madeSize > 0)
        found.made.push_back({head, madeSize});
    return found;
}

} // namespace tasks
