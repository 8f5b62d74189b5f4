#include "targets/isbnForms.h"
#include "marc/standardNumber.h"
#include <array>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

constexpr qsizetype longForm = 13, shortForm = 10, prefixLength = 3;
constexpr QStringView bookland = u"978";

// The lengths of the publisher's part in the group of China, by the number that its first digits form.
struct PublisherRange {
    int last; // of the first two digits after the group
    int length;
};
constexpr auto publisherRanges = std::to_array<PublisherRange>({{9, 2}, {49, 3}, {79, 4}, {89, 5}, {99, 6}});

// Returns the text up to the first character that is not part of an ISBN, in capitals, blanks as hyphens.
QString writtenNumber(QStringView text) {
    QString number;
    for (const QChar c : text.trimmed()) {
        if (c.isDigit() && c < u'\x80')
            number += c;
        else if (c == u'X' || c == u'x')
            number += u'X';
        else if (c == u'-' || c == u' ')
            number += u'-';
        else
            break;
    }
    while (number.endsWith(u'-'))
        number.chop(1);
    return number;
}

// Returns the lengths of group, publisher and title of the nine digits; all 0 if they are not known.
std::array<qsizetype, 3> partsOf(const QString &written, QStringView nine) {
    QStringList parts = written.split(u'-');
    if (parts.size() == 5)
        parts.removeFirst();
    if (parts.size() == 4 && parts[0].size() + parts[1].size() + parts[2].size() == nine.size())
        return {parts[0].size(), parts[1].size(), parts[2].size()};
    if (!nine.startsWith(u'7'))
        return {};
    const int start = nine.sliced(1, 2).toInt();
    for (const PublisherRange &range : publisherRanges) {
        if (start <= range.last)
            return {1, range.length, nine.size() - 1 - range.length};
    }
    return {};
}

QString hyphenated(QStringView nine, QChar check, const std::array<qsizetype, 3> &parts) {
    return nine.first(parts[0]) + u'-' + nine.sliced(parts[0], parts[1]) + u'-' + nine.last(parts[2]) + u'-' + check;
}

QString longOf(marc::IsbnKey key) {
    return QString::number(key);
}

} // namespace

QStringList isbnForms(QStringView text) {
    const QString written = writtenNumber(text);
    const QString plain = QString(written).remove(u'-');
    const marc::IsbnKey key = marc::isbnKey(plain);
    if (key == 0)
        return text.trimmed().isEmpty() ? QStringList() : QStringList{text.trimmed().toString()};
    const bool isLong = plain.size() == longForm;
    const bool isRight = isLong ? !marc::isbn13Fault(plain) : marc::isRightIsbn10(key);
    const QString nine = plain.mid(isLong ? prefixLength : 0, shortForm - 1);
    const bool isOfBookland = !isLong || plain.startsWith(bookland);
    const auto parts = isOfBookland || written.count(u'-') == 4 ? partsOf(written, nine) : std::array<qsizetype, 3>{};
    QStringList plainForms, hyphenatedForms;
    const auto add = [&](const QString &prefix, QChar check) {
        plainForms.append(prefix + nine + check);
        if (parts[0] > 0)
            hyphenatedForms.append((prefix.isEmpty() ? QString() : QString(prefix + u'-')) +
                                   hyphenated(nine, check, parts));
    };
    if (isLong)
        add(plain.first(prefixLength), plain.back());
    else if (isRight)
        add(bookland.toString(), longOf(key).back());
    if (!isLong || (isRight && isOfBookland))
        add({}, isLong ? marc::checkDigit11(nine) : plain.back());
    return plainForms + hyphenatedForms;
}

} // namespace targets
