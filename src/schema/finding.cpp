#include "schema/finding.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

struct Row {
    Check check;
    QStringView name, label;
    Level level;
};

constexpr auto rows = std::to_array<Row>({
    {Check::UndefinedField, u"undefinedField", u"未定义的字段", Level::Warning},
    {Check::DeprecatedField, u"deprecatedField", u"停用的字段", Level::Hint},
    {Check::NonrepeatableField, u"nonrepeatableField", u"字段重复", Level::Error},
    {Check::MissingField, u"missingField", u"缺必备字段", Level::Error},
    {Check::InvalidFieldValue, u"invalidFieldValue", u"控制字段的内容", Level::Error},
    {Check::InvalidIndicator, u"invalidIndicator", u"指示符", Level::Error},
    {Check::UndefinedSubfield, u"undefinedSubfield", u"未定义的子字段", Level::Warning},
    {Check::DeprecatedSubfield, u"deprecatedSubfield", u"停用的子字段", Level::Hint},
    {Check::NonrepeatableSubfield, u"nonrepeatableSubfield", u"子字段重复", Level::Error},
    {Check::MissingSubfield, u"missingSubfield", u"缺必备子字段", Level::Error},
    {Check::InvalidSubfieldValue, u"invalidSubfieldValue", u"子字段的内容", Level::Error},
    {Check::PatternMismatch, u"patternMismatch", u"形式不合", Level::Error},
    {Check::InvalidPosition, u"invalidPosition", u"字符位不全", Level::Error},
    {Check::RecordTypes, u"recordTypes", u"按记录类型", Level::Error},
    {Check::UndefinedCode, u"undefinedCode", u"未定义的代码", Level::Error},
    {Check::DeprecatedCode, u"deprecatedCode", u"停用的代码", Level::Hint},
    {Check::UndefinedCodelist, u"undefinedCodelist", u"代码表缺失", Level::Warning},
    {Check::InvalidFlag, u"invalidFlag", u"未定义的代码(多项)", Level::Error},
    {Check::ExternalRule, u"externalRule", u"字段间的规则", Level::Error},
    {Check::GivenUp, u"givenUp", u"太费时，未检查", Level::Warning},
});
static_assert(rows.size() == checkCount && std::ranges::is_sorted(rows, {}, &Row::check));

// Returns "“label”" for a place with a name, else an empty text.
QString labelled(const QString &label) {
    return label.isEmpty() ? QString() : u"（"_s + label + u"）";
}

QString labelAt(const Finding &finding, const Schema &schema) {
    const FieldRules *field = schema.field(finding.tag);
    if (!field)
        return {};
    const SubfieldRules *subfield = finding.code != noCode ? field->subfield(finding.code) : nullptr;
    const ValueRules *value = subfield ? static_cast<const ValueRules *>(subfield) : field;
    for (const PositionRules &position : value->positions) {
        if (finding.start >= 0 && position.start <= finding.start && finding.start <= position.end)
            return position.label;
    }
    return subfield ? subfield->label : field->label;
}

QString quoted(const Finding &finding) {
    return u"“"_s + finding.value + u"”";
}

QString inValue(const Finding &finding) {
    if (finding.start < 0)
        return {};
    const QString range =
        finding.end > finding.start ? u"%1—%2"_s.arg(finding.start).arg(finding.end) : QString::number(finding.start);
    return u"第"_s + range + u"位";
}

QString quotedCode(const Finding &finding) {
    return u"$"_s + (finding.code == noCode ? QString() : QString(QChar(finding.code)));
}

QString wordsOfRule(const Finding &finding, const Schema &schema) {
    const bool isKnown = finding.rule >= 0 && size_t(finding.rule) < schema.rules.size();
    const Rule *rule = isKnown ? &schema.rules[size_t(finding.rule)] : nullptr;
    if (finding.check == Check::GivenUp)
        return rule ? u"规则“%1”太费时，未检查"_s.arg(rule->name) : u"内容太费时，未检查"_s;
    return rule ? rule->description : QString();
}

} // namespace

QStringView nameOf(Check check) {
    return rows[size_t(check)].name;
}

QStringView labelOf(Check check) {
    return rows[size_t(check)].label;
}

Level levelOf(Check check) {
    return rows[size_t(check)].level;
}

QString placeOf(const Finding &finding) {
    QString place = finding.tag == unknownTag ? finding.value : tagName(finding.tag);
    if (finding.indicator)
        return place + u'^' + QString::number(finding.indicator);
    if (finding.code != noCode)
        place += quotedCode(finding);
    if (finding.start >= 0)
        place += u'/' + QString::number(finding.start) +
                 (finding.end > finding.start ? u'-' + QString::number(finding.end) : QString());
    return place;
}

QString wordsOf(const Finding &finding, const Schema &schema) {
    const QString label = labelled(labelAt(finding, schema));
    switch (finding.check) {
    case Check::UndefinedField:
        return u"格式中没有这个字段"_s;
    case Check::DeprecatedField:
        return u"字段%1已停用"_s.arg(label);
    case Check::NonrepeatableField:
        return u"字段%1不可重复"_s.arg(label);
    case Check::MissingField:
        return u"缺少必备字段%1"_s.arg(label);
    case Check::InvalidIndicator:
        return u"指示符%1不能是%2"_s.arg(finding.indicator).arg(quoted(finding));
    case Check::UndefinedSubfield:
        return u"字段%1没有子字段%2"_s.arg(label, quotedCode(finding));
    case Check::DeprecatedSubfield:
        return u"子字段%1%2已停用"_s.arg(quotedCode(finding), label);
    case Check::NonrepeatableSubfield:
        return u"子字段%1%2不可重复"_s.arg(quotedCode(finding), label);
    case Check::MissingSubfield:
        return u"缺少必备子字段%1%2"_s.arg(quotedCode(finding), label);
    case Check::PatternMismatch:
        return inValue(finding) + quoted(finding) + u"不合规定的形式%1"_s.arg(label);
    case Check::InvalidPosition:
        return u"内容太短，缺%1%2"_s.arg(inValue(finding), label);
    case Check::UndefinedCode:
    case Check::InvalidFlag:
        return inValue(finding) + quoted(finding) + u"不是规定的代码%1"_s.arg(label);
    case Check::DeprecatedCode:
        return inValue(finding) + u"代码" + quoted(finding) + u"已停用%1"_s.arg(label);
    case Check::UndefinedCodelist:
        return u"格式的模式中缺少所引用的代码表，未能检查"_s;
    case Check::ExternalRule:
    case Check::GivenUp:
        return wordsOfRule(finding, schema);
    default:
        return labelOf(finding.check).toString();
    }
}

} // namespace schema
