#include "tasks/isbnForms.h"
#include "marc/standardNumber.h"
#include <QFile>
#include <QStringTokenizer>
#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr qsizetype longForm = 13, shortForm = 10;
constexpr QStringView bookland = u"978", word = u"ISBN";

// Registrant elements from `first` to `last`, as digits of equal number.
struct Range {
    QString group; // prefix and group: "9787"
    qsizetype prefixLength;
    QString first;
    QString last;
};

// Reads the built-in table.
std::vector<Range> readRanges() {
    std::vector<Range> ranges;
    QFile file(u":/tasks/isbn-ranges.txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        return ranges;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QStringList parts = line.split(u'\t');
        if (line.startsWith(u';') || parts.size() != 2)
            continue;
        for (const QStringView range : QStringView(parts[1]).tokenize(u' '))
            ranges.push_back({QString(parts[0]).remove(u'-'), parts[0].indexOf(u'-'),
                              range.first(range.indexOf(u'-')).toString(),
                              range.sliced(range.indexOf(u'-') + 1).toString()});
    }
    return ranges;
}

struct Found {
    QString digits;   // 10 or 13, with an X as the last of 10
    bool hasHyphens;  // as it was written
    QStringView rest; // what follows
};

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

std::optional<Found> find(QStringView text) {
    const QStringView number = withoutWord(text);
    Found found{};
    qsizetype end = 0; // of the number
    for (qsizetype i = 0; i < number.size() && found.digits.size() < longForm; ++i) {
        const QChar c = number[i];
        const bool isX = (c == u'X' || c == u'x') && found.digits.size() == shortForm - 1;
        if (isDigit(c) || isX) {
            found.digits += c.toUpper();
            end = i + 1;
        } else if (c == u'-') {
            found.hasHyphens = true;
        } else if (c != u' ') {
            break;
        }
        if (isX)
            break;
    }
    found.rest = number.sliced(end);
    const bool isLong = found.digits.size() == longForm;
    const bool isRight = isLong ? !marc::isbn13Fault(found.digits)
                                : found.digits.size() == shortForm && marc::isRightIsbn10(marc::isbnKey(found.digits));
    const bool ends = found.rest.isEmpty() || !found.rest[0].isLetterOrNumber() || found.rest[0].unicode() > 0x7F;
    return isRight && ends ? std::optional(found) : std::nullopt;
}

// Returns the digits with hyphens; an empty text if the ranges are not known.
QString hyphenated(const QString &digits) {
    static const std::vector<Range> ranges = readRanges();
    const bool isShort = digits.size() == shortForm;
    const QString whole = isShort ? bookland + digits : digits;
    for (const Range &range : ranges) {
        if (!whole.startsWith(range.group))
            continue;
        const qsizetype length = range.first.size();
        const QStringView registrant = QStringView(whole).sliced(range.group.size(), length);
        if (registrant < range.first || registrant > range.last)
            continue;
        const qsizetype title = range.group.size() + length; // where the title's element begins
        const QString group = range.group.sliced(range.prefixLength);
        const QString prefix = isShort ? QString() : range.group.first(range.prefixLength) + u'-';
        return prefix + group + u'-' + registrant + u'-' + whole.sliced(title).chopped(1) + u'-' + whole.back();
    }
    return {};
}

QString joined(const QString &number, QStringView rest) {
    return number + rest;
}

// Returns the number in another form, with hyphens if it had some and the ranges are known.
QString inForm(const QString &digits, const Found &found) {
    const QString withHyphens = found.hasHyphens ? hyphenated(digits) : QString();
    return joined(withHyphens.isEmpty() ? digits : withHyphens, found.rest);
}

} // namespace

std::optional<QString> hyphenatedIsbn(QStringView text) {
    const auto found = find(text);
    const QString number = found ? hyphenated(found->digits) : QString();
    return number.isEmpty() ? std::nullopt : std::optional(joined(number, found->rest));
}

std::optional<QString> plainIsbn(QStringView text) {
    const auto found = find(text);
    return found ? std::optional(joined(found->digits, found->rest)) : std::nullopt;
}

std::optional<QString> isbnOf10(QStringView text) {
    const auto found = find(text);
    if (!found || found->digits.size() != longForm || !found->digits.startsWith(bookland))
        return std::nullopt;
    const QString nine = found->digits.sliced(bookland.size()).chopped(1);
    return inForm(nine + marc::checkDigit11(nine), *found);
}

std::optional<QString> isbnOf13(QStringView text) {
    const auto found = find(text);
    if (!found || found->digits.size() != shortForm)
        return std::nullopt;
    return inForm(QString::number(marc::isbnKey(found->digits)), *found);
}

} // namespace tasks
