#include "proof/isbn.h"
#include "marc/standardNumber.h"
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

Fault fault(FaultKind kind, const QString &words) {
    return {.kind = kind, .tag = u"010"_s, .words = words};
}

Fault fourSegmentsWanted() {
    QString words = u"ISBN格式错误.ISBN号应该分为4段"_s;
    for (const Segment &segment : segments)
        words += u"\r\n      " + segment.name;
    return fault(FaultKind::IsbnParts, words);
}

// Returns a fault with one line for each wrong segment.
std::optional<Fault> segmentFault(const QList<QStringView> &parts) {
    QString lines;
    for (size_t i = 0; i < segments.size(); ++i) {
        const QStringView part = parts[qsizetype(i)];
        if (part.isEmpty())
            lines += u"\r\n       ISBN号" + segments[i].name + u"不能为空！";
        else if (!segments[i].isRight(part))
            lines += u"\r\n       ISBN号" + segments[i].name + segments[i].otherFault;
    }
    if (lines.isEmpty())
        return std::nullopt;
    return fault(FaultKind::IsbnSegments, u"ISBN格式错误！" + lines);
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

} // namespace

std::optional<Fault> checkISBN(const QString &text) {
    if (text.size() != writtenLength)
        return fault(FaultKind::Isbn, u"ISBN格式错误.ISBN号长度应该为13位"_s);
    const QList<QStringView> parts = QStringView(text).split(u'-');
    if (parts.size() != qsizetype(segments.size()))
        return fourSegmentsWanted();
    if (auto wrong = segmentFault(parts))
        return wrong;

    // A segment that is a number may contain a sign, a decimal point or blanks, but the check digit needs digits.
    const QString joined = QString(text).remove(u'-');
    const QStringView digits = QStringView(joined).first(checkedDigits);
    if (!std::ranges::all_of(digits, isDigit))
        return fault(FaultKind::Isbn, u"ISBN格式错误.ISBN号除校验位外只能为数字字符"_s);
    if (joined.back() != marc::checkDigit11(digits))
        return fault(FaultKind::Isbn, u"ISBN号校验位错误"_s);
    return std::nullopt;
}

std::vector<Fault> proofISBN(const marc::FieldRows &rows) {
    const auto is010 = [](const marc::FieldRow &row) { return trimBlanks(row.identifier) == u"010"; };
    const auto field = std::ranges::find_if(rows, is010);
    std::vector<Fault> faults;
    if (field == rows.end())
        return faults;
    for (auto row = field + 1; row != rows.end() && !marc::isFieldRow(*row); ++row) {
        const QString value = trimBlanks(row->value);
        if (!trimBlanks(row->identifier).endsWith(u'a') || value.isEmpty())
            continue;
        faults.clear();
        if (auto fault = checkISBN(value)) {
            fault->element = row - rows.begin();
            faults.push_back(*fault);
        }
    }
    return faults;
}

} // namespace proof
