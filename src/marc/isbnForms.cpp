#include "marc/isbnForms.h"
#include "marc/standardNumber.h"
#include <QFile>
#include <QHash>
#include <QStringTokenizer>
#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype longForm = 13, shortForm = 10;
constexpr qsizetype prefixLength = 3, longestGroup = 5;
constexpr QStringView bookland = u"978", word = u"ISBN";

// The registrant elements from `first` to `last`, both with the same number of digits.
struct Range {
    QString first;
    QString last;
};
using Ranges = QHash<QString, std::vector<Range>>; // by the digits of prefix and group

// Reads the built-in table.
Ranges readRanges() {
    Ranges ranges;
    QFile file(u":/marc/isbn-ranges.txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        return ranges;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QStringList parts = line.split(u'\t');
        if (line.startsWith(u';') || parts.size() != 2)
            continue;
        std::vector<Range> &ofGroup = ranges[QString(parts[0]).remove(u'-')];
        for (const QStringView range : QStringView(parts[1]).tokenize(u' '))
            ofGroup.push_back(
                {range.first(range.indexOf(u'-')).toString(), range.sliced(range.indexOf(u'-') + 1).toString()});
    }
    return ranges;
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Removes "ISBN" and the blanks and signs after it.
QStringView withoutWord(QStringView text) {
    text = text.trimmed();
    if (!text.startsWith(word, Qt::CaseInsensitive))
        return text;
    const QStringView after = text.sliced(word.size());
    const auto number = std::ranges::find_if(after, isDigit);
    const QStringView between = after.first(number - after.begin());
    const auto isSign = [](QChar c) { return c == u' ' || c == u':' || c == u'：' || c == u'-'; };
    return std::ranges::all_of(between, isSign) ? after.sliced(between.size()) : text;
}

// Returns the length of the registrant element of the 13 digits, whose prefix and group are `group`; 0 if it is in no
// range.
qsizetype registrantLength(const QString &whole, qsizetype group) {
    static const Ranges ranges = readRanges();
    const auto found = ranges.constFind(whole.first(group));
    if (found == ranges.constEnd())
        return 0;
    for (const Range &range : *found) {
        const QStringView registrant = QStringView(whole).sliced(group, range.first.size());
        if (registrant >= range.first && registrant <= range.last)
            return range.first.size();
    }
    return 0;
}

} // namespace

std::optional<Isbn> isbnIn(QStringView text) {
    const QStringView number = withoutWord(text);
    Isbn isbn{};
    qsizetype end = 0; // of the number
    for (qsizetype i = 0; i < number.size() && isbn.digits.size() < longForm; ++i) {
        const QChar c = number[i];
        const bool isX = (c == u'X' || c == u'x') && isbn.digits.size() == shortForm - 1;
        if (isDigit(c) || isX) {
            isbn.digits += c.toUpper();
            end = i + 1;
        } else if (c == u'-') {
            isbn.hasHyphens = true;
        } else if (c != u' ') {
            break;
        }
        if (isX)
            break;
    }
    isbn.rest = number.sliced(end);
    const bool isRight = isbn.digits.size() == longForm
                             ? !isbn13Fault(isbn.digits)
                             : isbn.digits.size() == shortForm && isRightIsbn10(isbnKey(isbn.digits));
    const bool ends = isbn.rest.isEmpty() || !isbn.rest[0].isLetterOrNumber() || isbn.rest[0].unicode() > 0x7F;
    return isRight && ends ? std::optional(isbn) : std::nullopt;
}

std::optional<QString> isbnWithHyphens(const QString &digits) {
    const bool isShort = digits.size() == shortForm;
    const QString whole = isShort ? bookland + digits : digits;
    for (qsizetype group = prefixLength + 1; group <= prefixLength + longestGroup; ++group) {
        const qsizetype length = registrantLength(whole, group);
        if (length == 0)
            continue;
        const qsizetype title = group + length; // where the title's element begins
        return (isShort ? QString() : QString(whole.first(prefixLength) + u'-')) +
               whole.sliced(prefixLength, group - prefixLength) + u'-' + whole.sliced(group, length) + u'-' +
               whole.sliced(title).chopped(1) + u'-' + whole.back();
    }
    return std::nullopt;
}

std::optional<QString> isbnOf10(const QString &digits) {
    if (digits.size() != longForm || !digits.startsWith(bookland))
        return std::nullopt;
    const QString nine = digits.sliced(bookland.size()).chopped(1);
    return nine + checkDigit11(nine);
}

std::optional<QString> isbnOf13(const QString &digits) {
    return digits.size() == shortForm ? std::optional(QString::number(isbnKey(digits))) : std::nullopt;
}

} // namespace marc
