#include "tasks/fieldTemplate.h"
#include "tasks/stepTables.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr int widest = 12; // digits of a number
constexpr QStringView dollar = u"dollar", number = u"序号";

// Returns the first value of a field; with a code, of a subfield, also if the first field does not have it.
std::optional<QStringView> firstIn(const marc::FieldedRecord &record, const QString &tag, QChar code) {
    for (const marc::Field &field : record.fields) {
        if (field.tag != tag)
            continue;
        if (const auto value = code.isNull() ? std::optional<QStringView>(field.content) : field.subfield(code))
            return value;
    }
    return std::nullopt;
}

} // namespace

platform::Result<FieldTemplate> FieldTemplate::parse(const QString &text, bool isField) {
    FieldTemplate made;
    QString literal;
    const auto endLiteral = [&] {
        if (!literal.isEmpty())
            made.m_parts.push_back({.source = Source::Literal, .text = std::exchange(literal, {})});
    };
    const QStringView all(text);
    for (qsizetype i = 0; i < all.size(); ++i) {
        const QChar c = all[i];
        if (c != u'{' && c != u'}') {
            literal += isField && c == u'$' ? QChar(marc::subfieldDelimiter) : c;
            continue;
        }
        if (i + 1 < all.size() && all[i + 1] == c) {
            literal += all[i++];
            continue;
        }
        const qsizetype end = c == u'{' ? all.indexOf(u'}', i) : -1;
        if (end < 0)
            return platform::Failure{u"第%1个字符“%2”没有配对；要写花括号本身，请写两个"_s.arg(i + 1).arg(c)};
        const QStringView name = all.sliced(i + 1, end - i - 1);
        i = end;
        if (name == dollar) {
            literal += u'$';
            continue;
        }
        auto part = parseVariable(name);
        if (!part)
            return platform::Failure{u"没有“{%1}”这种变量"_s.arg(name.toString())};
        endLiteral();
        made.m_parts.push_back(*std::move(part));
    }
    endLiteral();
    return made;
}

std::optional<FieldTemplate::Part> FieldTemplate::parseVariable(QStringView name) {
    constexpr std::array<std::pair<QStringView, Source>, 6> facts{{{u"日期", Source::Date},
                                                                   {u"年", Source::Year},
                                                                   {u"月", Source::Month},
                                                                   {u"日", Source::Day},
                                                                   {u"文件名", Source::FileName},
                                                                   {number, Source::Number}}};
    for (const auto &[word, source] : facts) {
        if (name == word)
            return Part{.source = source};
    }
    if (name.startsWith(number) && name.sliced(number.size()).startsWith(u':')) {
        const auto width = parsePositions(name.sliced(number.size() + 1));
        if (!width || width->count() != 1 || width->first < 1 || width->first > widest)
            return std::nullopt;
        return Part{.source = Source::Number, .width = width->first};
    }
    return parseValue(name);
}

// Reads "200$a", "$a", "001" or "LDR", each possibly with positions and "?".
std::optional<FieldTemplate::Part> FieldTemplate::parseValue(QStringView name) {
    Part part{.source = Source::Record};
    if (name.endsWith(u'?')) {
        part.optional = true;
        name.chop(1);
    }
    if (const qsizetype slash = name.indexOf(u'/'); slash >= 0) {
        part.positions = parsePositions(name.sliced(slash + 1));
        if (!part.positions)
            return std::nullopt;
        name = name.first(slash);
    }
    const qsizetype sign = name.indexOf(u'$');
    const QStringView tag = name.first(sign < 0 ? name.size() : sign);
    if (sign >= 0) {
        if (name.size() != sign + 2 || !isCode(name[sign + 1]))
            return std::nullopt;
        part.code = name[sign + 1];
    }
    part.text = tag.toString();
    if (tag.isEmpty() && sign >= 0)
        part.source = Source::Current;
    else if (tag != leaderTag && !isFieldTag(tag))
        return std::nullopt;
    const bool hasSubfields = tag != leaderTag && !isControlTag(tag);
    return hasSubfields == (sign >= 0) ? std::optional(part) : std::nullopt;
}

std::optional<QString> FieldTemplate::valueOf(const Part &part, const marc::FieldedRecord &record,
                                              const marc::Field *current) {
    std::optional<QStringView> value;
    if (part.text == leaderTag)
        value = record.leader;
    else if (part.source == Source::Current)
        value = current ? current->subfield(part.code) : std::nullopt;
    else
        value = firstIn(record, part.text, part.code);
    if (value && part.positions)
        value = value->size() > part.positions->last
                    ? std::optional(value->sliced(part.positions->first, part.positions->count()))
                    : std::nullopt;
    if (!value || value->isEmpty())
        return part.optional ? std::optional(QString()) : std::nullopt;
    return value->toString();
}

QString FieldTemplate::factOf(const Part &part, const RunFacts &facts) {
    switch (part.source) {
    case Source::Date:
        return facts.date.toString(u"yyyyMMdd");
    case Source::Year:
        return facts.date.toString(u"yyyy");
    case Source::Month:
        return facts.date.toString(u"MM");
    case Source::Day:
        return facts.date.toString(u"dd");
    case Source::Number:
        return QString::number(facts.number).rightJustified(part.width, u'0');
    case Source::FileName:
        return facts.fileName;
    default:
        return part.text;
    }
}

std::optional<QString> FieldTemplate::expand(const marc::FieldedRecord &record, const marc::Field *current,
                                             const RunFacts &facts) const {
    QString text;
    for (const Part &part : m_parts) {
        if (part.source != Source::Record && part.source != Source::Current) {
            text += factOf(part, facts);
            continue;
        }
        const auto value = valueOf(part, record, current);
        if (!value)
            return std::nullopt;
        text += *value;
    }
    return text;
}

bool FieldTemplate::needsNumber() const {
    return std::ranges::count(m_parts, Source::Number, &Part::source) > 0;
}

bool FieldTemplate::needsCurrentField() const {
    return std::ranges::count(m_parts, Source::Current, &Part::source) > 0;
}

} // namespace tasks
