#include "proof/isbn.h"
#include "platform/numbers.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using platform::trimBlanks;

namespace proof {

namespace {

constexpr qsizetype writtenLength = 13; // ten characters and three hyphens
constexpr qsizetype checkedDigits = 9;  // all but the check digit

struct Segment {
    QStringView name;
    QStringView otherFault;
    bool (*isRight)(QStringView segment);
};

bool isNumber(QStringView segment) {
    return platform::isNumericText(segment);
}
bool isOneCharacter(QStringView segment) {
    return segment.size() == 1;
}

constexpr auto segments = std::to_array<Segment>({
    {u"第一段:国家、区域或语言集号", u"只能为数字！", isNumber},
    {u"第二段:出版商代号", u"只能为数字！", isNumber},
    {u"第三段:图书号", u"只能为数字！", isNumber},
    {u"第四段:校验位", u"只应为一位字符！", isOneCharacter},
});

QString fourSegmentsWanted() {
    QString report = u"Error:ISBN格式错误.ISBN号应该分为4段\r\n"_s;
    for (const Segment &segment : segments)
        report += u"      " + segment.name + u"\r\n";
    return report;
}

// A line for each segment that is wrong.
QString segmentFaults(const QList<QStringView> &parts) {
    QString report;
    for (size_t i = 0; i < segments.size(); ++i) {
        const QStringView part = parts[qsizetype(i)];
        if (part.isEmpty())
            report += u"       ISBN号" + segments[i].name + u"不能为空！\r\n";
        else if (!segments[i].isRight(part))
            report += u"       ISBN号" + segments[i].name + segments[i].otherFault + u"\r\n";
    }
    return report;
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// The check digit by the rule of ISBN-10: weights from 10 down to 2, modulo 11.
QChar checkDigit(QStringView digits) {
    int sum = 0;
    for (qsizetype i = 0; i < checkedDigits; ++i)
        sum += int(10 - i) * (digits[i].unicode() - u'0');
    constexpr QStringView byRemainder = u"0X987654321";
    return byRemainder[sum % 11];
}

} // namespace

std::optional<QString> checkISBN(const QString &text) {
    if (text.size() != writtenLength)
        return u"Error:ISBN格式错误.ISBN号长度应该为13位"_s;
    const QList<QStringView> parts = QStringView(text).split(u'-');
    if (parts.size() != qsizetype(segments.size()))
        return fourSegmentsWanted();
    if (const QString faults = segmentFaults(parts); !faults.isEmpty())
        return u"ISBN格式错误！\r\n" + faults;

    // A segment may be a number and yet hold a sign, a point or blanks; only digits can be summed up.
    const QString joined = QString(text).remove(u'-');
    if (!std::all_of(joined.begin(), joined.begin() + checkedDigits, isDigit))
        return u"Error:ISBN格式错误.ISBN号除校验位外只能为数字字符"_s;
    if (joined.back() != checkDigit(joined))
        return u"Error:ISBN号校验位错误"_s;
    return {};
}

std::optional<QString> proofISBN(const marc::FieldRows &rows) {
    const auto is010 = [](const marc::FieldRow &row) { return trimBlanks(row.identifier) == u"010"; };
    const auto field = std::ranges::find_if(rows, is010);
    std::optional<QString> result;
    if (field == rows.end())
        return result;
    for (auto row = field + 1; row != rows.end() && !marc::isFieldRow(*row); ++row) {
        const QString value = trimBlanks(row->value);
        if (trimBlanks(row->identifier).endsWith(u'a') && !value.isEmpty())
            result = checkISBN(value);
    }
    return result;
}

} // namespace proof
