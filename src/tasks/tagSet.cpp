#include "tasks/tagSet.h"
#include "marc/isoLayout.h"
#include <QStringTokenizer>
#include <algorithm>

namespace tasks {

namespace {

constexpr qsizetype mostDigits = 4; // of a position

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

std::optional<int> number(QStringView digits) {
    if (digits.isEmpty() || digits.size() > mostDigits || !std::ranges::all_of(digits, isDigit))
        return std::nullopt;
    return digits.toInt();
}

} // namespace

std::optional<TagSet> TagSet::parse(QStringView text) {
    TagSet set;
    if (text.isEmpty())
        return set;
    for (const QStringView part : text.tokenize(u',')) {
        const auto isPattern = [](QChar c) { return isDigit(c) || c == u'X'; };
        if (part.size() != marc::tagLength || !std::ranges::all_of(part, isPattern) || part == u"000")
            return std::nullopt;
        for (size_t tag = 1; tag < count; ++tag) {
            const size_t digits[] = {tag / 100, tag / 10 % 10, tag % 10};
            bool matches = true;
            for (qsizetype i = 0; i < marc::tagLength; ++i)
                matches = matches && (part[i] == u'X' || size_t(part[i].unicode() - u'0') == digits[i]);
            set.m_tags[tag] = set.m_tags[tag] || matches;
        }
    }
    return set;
}

bool TagSet::mixes(QStringView tag) const {
    constexpr size_t firstDataTag = 10;
    const bool isControl = numberOf(tag) < firstDataTag;
    for (size_t i = 1; i < count; ++i) {
        if (m_tags[i] && (i < firstDataTag) != isControl)
            return true;
    }
    return false;
}

size_t TagSet::numberOf(QStringView tag) {
    size_t value = 0;
    for (const QChar c : tag) {
        if (!isDigit(c))
            return 0;
        value = value * 10 + (c.unicode() - u'0');
    }
    return value < count ? value : 0;
}

std::optional<Positions> parsePositions(QStringView text) {
    const qsizetype dash = text.indexOf(u'-');
    const auto first = number(text.first(dash < 0 ? text.size() : dash));
    const auto last = dash < 0 ? first : number(text.sliced(dash + 1));
    if (!first || !last || *last < *first)
        return std::nullopt;
    return Positions{*first, *last};
}

bool isFieldTag(QStringView text) {
    return text.size() == marc::tagLength && std::ranges::all_of(text, isDigit) && text != u"000";
}

bool isCode(QChar c) {
    return isDigit(c) || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

} // namespace tasks
