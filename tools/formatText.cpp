#include "tools/formatText.h"
#include "tools/sourceText.h"
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tools {

namespace {

constexpr QStringView firstDataTag = u"010";
constexpr QStringView typedTag = u"???";

bool hasSubfields(const FormatField &field) {
    return field.tag >= firstDataTag && field.tag != typedTag;
}

// The marks at the end of a line: "!" required, "+" repeatable, then a regular expression between slashes.
constexpr QStringView marksShape = uR"(( !?\+?)?(?: /(.+)/)?$)";

FormatMarks marksOf(const QRegularExpressionMatch &line, int first) {
    const QString marks = line.captured(first);
    return {marks.contains(u'!'), marks.contains(u'+'), line.captured(first + 1)};
}

QString takeIndicator(const QRegularExpressionMatch &line, FormatField &field) {
    FormatIndicator &indicator = field.indicators[line.captured(1) == u"1" ? 0 : 1];
    if (indicator.any || !indicator.codes.isEmpty())
        return u"the indicator has a line already"_s;
    indicator = {line.captured(2) == u"*", line.captured(3), parseCodes(line.captured(4))};
    return indicator.any || !indicator.codes.isEmpty() ? QString() : u"an item without a code, or a code twice"_s;
}

QString takeSubfield(const QRegularExpressionMatch &line, FormatField &field) {
    const QChar code = line.captured(1)[0];
    if (std::ranges::count(field.subfields, code, &FormatSubfield::code) > 0)
        return u"the field has this code already"_s;
    field.subfields.append({code, line.captured(2), marksOf(line, 3)});
    return {};
}

// Adds one line to the format. Returns what is wrong with the line, or an empty string.
QString takeLine(const QString &line, Format &format) {
    static const QRegularExpression fieldShape(uR"(^(\d{3}|\?\?\?) (\S|\S.*?\S))" + marksShape);
    static const QRegularExpression subfieldShape(uR"(^\$([0-9A-Za-z]) (\S|\S.*?\S))" + marksShape);
    static const QRegularExpression indicatorShape(uR"(^\^([12]) (\*|(\S+) = (.+))$)"_s);
    if (const auto field = fieldShape.match(line); field.hasMatch()) {
        if (!format.isEmpty() && format.back().tag >= field.captured(1)) // "???" sorts after the digits
            return u"the field must follow "_s + format.back().tag + u", and once"_s;
        format.append({field.captured(1), field.captured(2), marksOf(field, 3), {}, {}});
        return {};
    }
    const auto subfield = subfieldShape.match(line);
    const auto indicator = indicatorShape.match(line);
    if (!subfield.hasMatch() && !indicator.hasMatch())
        return u"neither \"200 name\" nor \"^1 name = codes\" nor \"$a name\""_s;
    if (format.isEmpty() || !hasSubfields(format.back()))
        return u"no field above that has subfields"_s;
    return subfield.hasMatch() ? takeSubfield(subfield, format.back()) : takeIndicator(indicator, format.back());
}

// Returns each field as a section: its header, then its subfields. The file ends with an empty line because its readers
// never use the last line.
QString sections(const Format &format, QString (*header)(const FormatField &)) {
    QString text;
    for (const FormatField &field : format) {
        if (field.tag == typedTag)
            continue;
        text += header(field) + u"\r\n"_s;
        for (const FormatSubfield &subfield : field.subfields)
            text += u'$' + subfield.code + u' ' + subfield.name + u"\r\n"_s;
    }
    return text + u"\r\n"_s;
}

// Returns the tag and code of every subfield, as "200a".
QSet<QString> references(const Format &format) {
    QSet<QString> all;
    for (const FormatField &field : format) {
        for (const FormatSubfield &subfield : field.subfields)
            all.insert(field.tag + subfield.code);
    }
    return all;
}

} // namespace

QList<FormatCode> parseCodes(QStringView list) {
    QList<FormatCode> codes;
    for (const QStringView item : list.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype colon = item.indexOf(u':', 1);
        codes.append({item.left(colon).toString(), colon < 0 ? QString() : item.sliced(colon + 1).toString()});
        if (std::ranges::count(codes, codes.back().code, &FormatCode::code) > 1)
            return {};
    }
    return codes;
}

platform::Result<Format> parseFormat(const QStringList &lines) {
    Format format;
    QList<qsizetype> begins; // index of each field's line
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].isEmpty() || lines[i].startsWith(u';'))
            continue;
        if (const QString fault = takeLine(lines[i], format); !fault.isEmpty())
            return platform::Failure{atLine(i, fault + u": "_s + lines[i])};
        if (begins.size() < format.size())
            begins.append(i);
    }
    for (qsizetype i = 0; i < format.size(); ++i) {
        if (hasSubfields(format[i]) && format[i].subfields.isEmpty())
            return platform::Failure{atLine(begins[i], u"the field has no subfields: "_s + lines[begins[i]])};
    }
    return format;
}

QString fieldList(const Format &format) {
    QString text;
    for (const FormatField &field : format)
        text += field.tag + u' ' + field.name + u"\r\n"_s;
    return text;
}

QString subfieldList(const Format &format) {
    return sections(format, [](const FormatField &field) -> QString { return u'[' + field.tag + u']'; });
}

QString descriptions(const Format &format) {
    return sections(format, [](const FormatField &field) -> QString { return u'[' + field.tag + u"] " + field.name; });
}

QString templateFault(const QStringList &lines, const Format &format) {
    const QSet<QString> known = references(format);
    QSet<QString> rules; // of the current section
    bool inSection = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString &line = lines[i];
        const QString rule = line.left(3) + line.right(1);
        QString fault;
        if (line.startsWith(u'[')) {
            if (line != u"[必备子字段]" && line != u"[不能重复的子字段]")
                fault = u"no section of this name"_s;
            else if (inSection)
                fault = u"the section must follow an empty line"_s;
            inSection = true;
            rules.clear();
        } else if (line.isEmpty()) {
            inSection = false;
        } else if (inSection) {
            if (!known.contains(rule))
                fault = u"no such subfield"_s;
            else if (rules.contains(rule))
                fault = u"the rule stands twice"_s;
            rules.insert(rule);
        }
        if (!fault.isEmpty())
            return atLine(i, fault + u": "_s + line);
    }
    return {};
}

} // namespace tools
