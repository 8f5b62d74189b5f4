#include "tools/codesText.h"
#include "tools/sourceText.h"
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace tools {

namespace {

int startOf(const CodedPosition &position) {
    return position.range.first(2).toInt();
}

int endOf(const CodedPosition &position) {
    return position.range.last(2).toInt();
}

bool codesFit(const CodedPosition &position) {
    const qsizetype width = endOf(position) - startOf(position) + 1;
    const qsizetype length = position.codes[0].code.size();
    return (position.flags ? width % length == 0 : width == length) &&
           std::ranges::count(position.codes, length, [](const FormatCode &code) { return code.code.size(); }) ==
               position.codes.size();
}

// Adds one line to the values. Returns what is wrong with the line, or an empty string.
QString takeLine(const QString &line, QList<CodedValue> &values) {
    static const QRegularExpression header(uR"(^\[(?:(LDR)|(\d{3})\$([0-9A-Za-z]))\]$)"_s);
    static const QRegularExpression shape(uR"(^(\d\d(?:-\d\d)?) (\S+)(?: /(.+)/| ([=*]) (.+))?$)"_s);
    if (const auto begin = header.match(line); begin.hasMatch()) {
        values.append({begin.captured(1) + begin.captured(2), begin.captured(3), {}});
        return {};
    }
    const auto parts = shape.match(line);
    if (!parts.hasMatch() || values.isEmpty())
        return u"neither \"[100$a]\" nor \"00-07 name\" below such a line"_s;
    const CodedPosition position{parts.captured(1), parts.captured(2), parts.captured(3), parseCodes(parts.captured(5)),
                                 parts.captured(4) == u"*"};
    QList<CodedPosition> &positions = values.back().positions;
    if (startOf(position) > endOf(position) || (!positions.isEmpty() && startOf(position) <= endOf(positions.back())))
        return u"the position must follow the one above"_s;
    if (!parts.captured(5).isEmpty() && (position.codes.isEmpty() || !codesFit(position)))
        return u"codes that are repeated or do not fit the position"_s;
    positions.append(position);
    return {};
}

} // namespace

platform::Result<QList<CodedValue>> parseCodedValues(const QStringList &lines) {
    QList<CodedValue> values;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].isEmpty() || lines[i].startsWith(u';'))
            continue;
        if (const QString fault = takeLine(lines[i], values); !fault.isEmpty())
            return platform::Failure{atLine(i, fault + u": "_s + lines[i])};
    }
    return values;
}

} // namespace tools
