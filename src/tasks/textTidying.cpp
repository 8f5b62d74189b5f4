#include "tasks/textTidying.h"
#include "marc/isbnForms.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr char16_t fullFirst = u'！', fullLast = u'～', fullOffset = u'！' - u'!';
constexpr QStringView signs = u"＋－＊／＝＠＃％＆．＿"; // not Chinese punctuation

bool isFull(QChar c) {
    return c >= fullFirst && c <= fullLast &&
           (QChar(char16_t(c.unicode() - fullOffset)).isLetterOrNumber() || signs.contains(c));
}

bool isBlank(QChar c) {
    return c.isSpace(); // also U+3000
}

bool isHanAt(QStringView text, qsizetype at) {
    return at >= 0 && at < text.size() && isHan(text[at].unicode());
}

// Returns the text with each character replaced by what `other` returns; std::nullopt if all are the same.
template <class Other>
std::optional<QString> mapped(QStringView text, Other other) {
    std::optional<QString> result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = other(i);
        if (c == text[i])
            continue;
        if (!result)
            result = text.toString();
        (*result)[i] = c;
    }
    return result;
}

std::optional<QString> halfWidth(QStringView text) {
    return mapped(text, [&](qsizetype i) {
        const QChar c = text[i];
        return isFull(c) ? QChar(char16_t(c.unicode() - fullOffset)) : c == u'\u3000' ? QChar(u' ') : c;
    });
}

std::optional<QString> fullPunctuation(QStringView text) {
    constexpr QStringView punctuation = u",;:?!";
    return mapped(text, [&](qsizetype i) {
        const bool isNextToHan = isHanAt(text, i - 1) || isHanAt(text, i + 1);
        return isNextToHan && punctuation.contains(text[i]) ? QChar(char16_t(text[i].unicode() + fullOffset)) : text[i];
    });
}

// Returns the text with each character of `from` replaced by that of `to` at the same place.
std::optional<QString> exchanged(QStringView text, QStringView from, QStringView to) {
    return mapped(text, [&](qsizetype i) {
        const qsizetype at = from.indexOf(text[i]);
        return at < 0 ? text[i] : to[at];
    });
}

constexpr QStringView half = u"()[]", full = u"（）［］";
std::optional<QString> halfBrackets(QStringView text) {
    return exchanged(text, full, half);
}
std::optional<QString> fullBrackets(QStringView text) {
    return exchanged(text, half, full);
}

std::optional<QString> blanks(QStringView text) {
    if (std::ranges::none_of(text, isBlank))
        return std::nullopt;
    QString result;
    for (const QChar c : text) {
        if (!isBlank(c))
            result += c;
        else if (!result.isEmpty() && !result.endsWith(u' '))
            result += u' ';
    }
    if (result.endsWith(u' '))
        result.chop(1);
    return result;
}

std::optional<QString> hanBlanks(QStringView text) {
    if (std::ranges::none_of(text, isBlank))
        return std::nullopt;
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        qsizetype end = i;
        while (end < text.size() && isBlank(text[end]))
            ++end;
        if (end > i && isHanAt(text, i - 1) && isHanAt(text, end))
            i = end;
        result += text[i];
    }
    return result;
}

// Removes the word from the front, in any case of letters.
bool take(QStringView &text, QStringView word) {
    if (!text.startsWith(word, Qt::CaseInsensitive))
        return false;
    text = text.sliced(word.size()).trimmed();
    return true;
}

// Removes the amount from the front and returns it with two decimals; empty if there is none or it has more.
QString takeAmount(QStringView &text) {
    QString whole, cents;
    bool inCents = false;
    qsizetype end = 0;
    for (; end < text.size(); ++end) {
        const QChar c = text[end];
        const bool isDigit = c >= u'0' && c <= u'9';
        if (isDigit)
            (inCents ? cents : whole) += c;
        else if (c == u'.' && !inCents)
            inCents = true;
        else if (c != u',' || inCents || end + 1 >= text.size() || !text[end + 1].isDigit())
            break;
    }
    if (whole.isEmpty() || whole.size() > 9 || cents.size() > 2)
        return {};
    text = text.sliced(end);
    return whole + u'.' + cents.leftJustified(2, u'0');
}

// A price without a currency is one in CNY only if nothing else is in the text.
std::optional<QString> price(QStringView text) {
    const QString plain = halfWidth(text.trimmed()).value_or(text.trimmed().toString());
    QStringView rest(plain);
    bool isMarked = false;
    while (take(rest, u"CNY") || take(rest, u"RMB") || take(rest, u"人民币") || take(rest, u"￥") || take(rest, u"¥"))
        isMarked = true;
    const QString amount = takeAmount(rest);
    if (amount.isEmpty())
        return std::nullopt;
    const QStringView afterAmount = rest.trimmed();
    QStringView afterUnit = afterAmount;
    const bool hasUnit = take(afterUnit, u"元");
    const bool isPlain = afterAmount.isEmpty();
    const bool isRange = afterUnit.startsWith(u'-') || afterUnit.startsWith(u'~') || afterUnit.startsWith(u'.');
    if ((!isMarked && !hasUnit && !isPlain) || isRange || (!afterUnit.isEmpty() && afterUnit[0].isDigit()))
        return std::nullopt;
    return QString(u"CNY" + amount + afterUnit);
}

std::optional<QString> hyphenatedIsbn(QStringView text) {
    const auto isbn = marc::isbnIn(text);
    const auto number = isbn ? marc::isbnWithHyphens(isbn->digits) : std::nullopt;
    return number ? std::optional<QString>(*number + isbn->rest) : std::nullopt;
}

std::optional<QString> plainIsbn(QStringView text) {
    const auto isbn = marc::isbnIn(text);
    return isbn ? std::optional<QString>(isbn->digits + isbn->rest) : std::nullopt;
}

// Returns the ISBN in another form, with hyphens if it had some and they are known.
template <std::optional<QString> (*Form)(const QString &)>
std::optional<QString> isbnAs(QStringView text) {
    const auto isbn = marc::isbnIn(text);
    const auto digits = isbn ? Form(isbn->digits) : std::nullopt;
    if (!digits)
        return std::nullopt;
    return (isbn->hasHyphens ? marc::isbnWithHyphens(*digits).value_or(*digits) : *digits) + isbn->rest;
}

struct Row {
    QStringView key;
    Tidying tidying;
};
constexpr auto rows = std::to_array<Row>({
    {u"halfWidth", halfWidth},
    {u"fullPunctuation", fullPunctuation},
    {u"blanks", blanks},
    {u"hanBlanks", hanBlanks},
    {u"halfBrackets", halfBrackets},
    {u"fullBrackets", fullBrackets},
    {u"price", price},
    {u"isbnHyphens", hyphenatedIsbn},
    {u"isbnPlain", plainIsbn},
    {u"isbn13", isbnAs<marc::isbnOf13>},
    {u"isbn10", isbnAs<marc::isbnOf10>},
});

} // namespace

Tidying tidyingOf(QStringView key) {
    const auto row = std::ranges::find(rows, key, &Row::key);
    return row == rows.end() ? nullptr : row->tidying;
}

bool isHan(char32_t c) {
    constexpr auto ranges = std::to_array<std::pair<char32_t, char32_t>>(
        {{0x4E00, 0x9FFF}, {0x3400, 0x4DBF}, {u'〇', u'〇'}, {0x20000, 0x3FFFF}, {0xF900, 0xFAFF}});
    return std::ranges::any_of(ranges, [c](const auto &range) { return range.first <= c && c <= range.second; });
}

} // namespace tasks
