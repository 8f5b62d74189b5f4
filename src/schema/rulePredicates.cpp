// The functions that "is NAME" calls.
#include "marc/standardNumber.h"
#include "schema/ruleParser.h"
#include <QDate>
#include <algorithm>
#include <array>

namespace schema {

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool areDigits(QStringView text) {
    return !text.isEmpty() && std::ranges::all_of(text, isDigit);
}

bool isPlainNumber(QStringView text) {
    return !text.isEmpty() &&
           std::ranges::all_of(text, [](QChar c) { return isDigit(c) || c == u'-' || c == u'X' || c == u'x'; });
}

qsizetype digitsOf(QStringView text) {
    return std::ranges::count_if(text, [](QChar c) { return c != u'-'; });
}

bool isIsbn13(QStringView text) {
    return isPlainNumber(text) && digitsOf(text) == 13 && marc::isIsbn13(text);
}

bool isIsbn10(QStringView text) {
    return isPlainNumber(text) && digitsOf(text) == 10 && marc::isbnKey(text) != 0;
}

bool isIsbn(QStringView text) {
    return isIsbn13(text) ? !marc::isbn13Fault(text) : isIsbn10(text) && marc::isRightIsbn10(marc::isbnKey(text));
}

// The segments of an ISBN are separated by hyphens: three of ten digits, four of thirteen.
bool isHyphenated(QStringView text) {
    const qsizetype hyphens = text.count(u'-');
    return !text.startsWith(u'-') && !text.endsWith(u'-') && !text.contains(u"--") &&
           hyphens == (digitsOf(text) == 13 ? 4 : 3);
}

bool isIssn(QStringView text) {
    return isPlainNumber(text) && text.size() == 9 && text[4] == u'-' && !marc::issnFault(text);
}

bool isDate(QStringView text) {
    return text.size() == 8 && areDigits(text) &&
           QDate::isValid(text.first(4).toInt(), text.sliced(4, 2).toInt(), text.last(2).toInt());
}

// A time as in field 005: 20260131235959.0.
bool isTime(QStringView text) {
    return text.size() == 16 && text[14] == u'.' && isDigit(text[15]) && isDate(text.first(8)) &&
           areDigits(text.sliced(8, 6)) && text.sliced(8, 2) < u"24" && text.sliced(10, 2) < u"60" &&
           text.sliced(12, 2) < u"60";
}

// A class number of the Chinese Library Classification: letters, digits, and the signs of its auxiliary tables.
bool isClassNumber(QStringView text) {
    if (text.isEmpty() || text[0] < u'A' || text[0] > u'Z' || QStringView(u"LMWY").contains(text[0]))
        return false;
    return std::ranges::all_of(text, [](QChar c) {
        return isDigit(c) || (c >= u'A' && c <= u'Z') || QStringView(u".-/+:=()\"<>[]{}#*?a").contains(c);
    });
}

// A price as CNY39.50, with a remark in parentheses, or without an amount.
bool isPrice(QStringView text) {
    const qsizetype end = std::ranges::find_if(text, [](QChar c) { return c == u'(' || c == u'（'; }) - text.begin();
    const QStringView plain = text.first(end).trimmed();
    if (plain.size() < 4 || !std::ranges::all_of(plain.first(3), [](QChar c) { return c >= u'A' && c <= u'Z'; }))
        return false;
    const QStringView amount = plain.sliced(3);
    const qsizetype point = amount.indexOf(u'.');
    return point < 0 ? areDigits(amount)
                     : areDigits(amount.first(point)) && amount.size() == point + 3 && areDigits(amount.last(2));
}

bool isPinyin(QStringView text) {
    return !text.isEmpty() && std::ranges::none_of(text, [](QChar c) { return c.script() == QChar::Script_Han; });
}

bool isHan(QStringView text) {
    return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c.script() == QChar::Script_Han; });
}

// Full-width letters and digits next to half-width ones.
bool isOfMixedWidth(QStringView text) {
    const auto isHalf = [](QChar c) { return c < QChar(128) && c.isLetterOrNumber(); };
    const auto isFull = [](QChar c) { return c >= QChar(0xFF01) && c <= QChar(0xFF5E) && c.isLetterOrNumber(); };
    return std::ranges::any_of(text, isHalf) && std::ranges::any_of(text, isFull);
}

bool hasFullWidth(QStringView text) {
    return std::ranges::any_of(
        text, [](QChar c) { return c >= QChar(0xFF01) && c <= QChar(0xFF5E) && c.isLetterOrNumber(); });
}

bool hasOuterBlank(QStringView text) {
    const auto isBlank = [](QChar c) { return c == u' ' || c == QChar(0x3000); };
    return !text.isEmpty() && (isBlank(text.front()) || isBlank(text.back()));
}

bool isEmptyText(QStringView text) {
    return std::ranges::all_of(text, [](QChar c) { return c == u' ' || c == QChar(0x3000); });
}

struct Row {
    QStringView name;
    Predicate function;
};

constexpr auto rows = std::to_array<Row>({
    {u"isbn", isIsbn},
    {u"isbn10", isIsbn10},
    {u"isbn13", isIsbn13},
    {u"issn", isIssn},
    {u"hyphenated", isHyphenated},
    {u"date", isDate},
    {u"time", isTime},
    {u"digits", areDigits},
    {u"price", isPrice},
    {u"clc", isClassNumber},
    {u"han", isHan},
    {u"pinyin", isPinyin},
    {u"mixedwidth", isOfMixedWidth},
    {u"fullwidth", hasFullWidth},
    {u"padded", hasOuterBlank},
    {u"blank", isEmptyText},
});

} // namespace

Predicate predicateNamed(QStringView name) {
    const auto row = std::ranges::find(rows, name, &Row::name);
    return row == rows.end() ? nullptr : row->function;
}

} // namespace schema
