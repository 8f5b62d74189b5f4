#include "marc/fieldText.h"
#include "platform/numbers.h"
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype tagLength = 3, indicatorCount = 2, identifierLength = 2;
constexpr QStringView dollar = u"{dollar}", leaderTag = u"000", lastOwnTag = u"001", embedded = u"$1",
                      indicatorWord = u"指示符";

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool isCode(QChar character) {
    return isDigit(character) || (character.toUpper() >= u'A' && character.toUpper() <= u'Z');
}

bool isTag(QStringView tag) {
    return tag.size() == tagLength && std::ranges::all_of(tag, isDigit);
}

bool isControl(QStringView tag) {
    return tag < u"010";
}

// The value of an embedded field contains subfields of its own.
bool embeds(QStringView tag, QStringView identifier) {
    return tag.startsWith(u'4') && identifier == embedded;
}

QString lineWithoutEnds(QString value) {
    for (QChar &character : value)
        if (character == u'\n' || character == u'\r')
            character = u' ';
    return value;
}

// Returns where the next subfield begins.
std::optional<qsizetype> subfieldFrom(QStringView content, qsizetype from, bool onlyEmbedded) {
    for (qsizetype at = content.indexOf(u'$', from); at >= 0; at = content.indexOf(u'$', at + 1))
        if (!onlyEmbedded || content.sliced(at).startsWith(embedded))
            return at;
    return std::nullopt;
}

// Returns the two indicators as the grid shows them, or std::nullopt.
std::optional<QString> indicatorsOf(QStringView written) {
    QString indicators = written.toString();
    while (indicators.size() > indicatorCount && indicators.endsWith(u' '))
        indicators.chop(1);
    indicators = indicators.leftJustified(indicatorCount);
    for (QChar &indicator : indicators)
        if (indicator == u' ' || indicator == u'\\')
            indicator = u'#';
    return indicators.size() == indicatorCount ? std::optional(indicators) : std::nullopt;
}

// Appends the rows of the subfields. Returns false if a "$" begins no subfield.
bool addSubfields(FieldRows &rows, QStringView tag, QStringView content) {
    const bool onlyEmbedded = embeds(tag, content.first(std::min(content.size(), identifierLength)));
    for (std::optional<qsizetype> at = 0; at;) {
        content = content.sliced(*at);
        if (content.size() < identifierLength || !isCode(content[1]))
            return false;
        at = subfieldFrom(content, identifierLength, onlyEmbedded);
        QString value = content.first(at.value_or(content.size())).sliced(identifierLength).toString();
        if (!onlyEmbedded)
            value.replace(dollar.toString(), u"$"_s);
        rows.append({.identifier = content.first(identifierLength).toString(), .value = value});
    }
    return true;
}

// Appends the rows of a line. Returns the reason if the line is not a field, else an empty text.
QString addField(FieldRows &rows, QStringView line) {
    const QStringView tag = line.first(std::min(line.size(), tagLength));
    if (!isTag(tag) || (line.size() > tagLength && line[tagLength] != u' ' && line[tagLength] != u'\t'))
        return u"开头不是字段号和空格"_s;
    if (tag <= lastOwnTag)
        return u"头标区和 001 不能粘贴"_s;
    const QStringView content = line.sliced(std::min(line.size(), tagLength + 1));
    if (isControl(tag)) {
        rows.append({.identifier = tag.toString(), .value = content.toString()});
        return {};
    }
    const auto first = subfieldFrom(content, 0, false);
    if (!first)
        return u"没有“$”开头的子字段"_s;
    const auto indicators = indicatorsOf(content.first(*first));
    if (!indicators)
        return u"指示符不是两位"_s;
    rows.append({.identifier = tag.toString(), .subfieldLabel = indicatorWord.toString(), .value = *indicators});
    return addSubfields(rows, tag, content.sliced(*first)) ? QString() : u"“$”后面不是子字段代码"_s;
}

} // namespace

QString fieldText(const FieldRows &rows) {
    QString text;
    QString tag;
    for (const FieldRow &row : rows) {
        const bool head = !row.identifier.startsWith(u'$');
        if (head)
            tag = row.identifier;
        if (!isTag(tag) || tag == leaderTag)
            continue;
        QString value = lineWithoutEnds(row.value);
        if (!head && !embeds(tag, row.identifier))
            value.replace(u'$', dollar.toString());
        if (head && !text.isEmpty())
            text += u'\n';
        text += row.identifier + (head ? u" " : u"") + value;
    }
    return text.isEmpty() ? text : QString(text + u'\n');
}

platform::Result<FieldRows> fieldsOfText(const QString &text) {
    FieldRows rows;
    QString lines = text;
    lines.replace(u'\r', u'\n');
    for (const QStringView line : QStringView(lines).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.trimmed().isEmpty())
            continue;
        if (const QString reason = addField(rows, line); !reason.isEmpty())
            return platform::Failure{reason + u"：" + line.first(std::min<qsizetype>(line.size(), 40))};
    }
    if (rows.isEmpty())
        return platform::Failure{u"没有文字"_s};
    return rows;
}

} // namespace marc
