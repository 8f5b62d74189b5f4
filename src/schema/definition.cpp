#include "schema/definition.h"
#include <QStringList>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

constexpr qsizetype mostCodes = 40;

QString named(const QString &code, const QString &label) {
    const QString shown = code.trimmed().isEmpty() ? u"空格"_s : code;
    return label.isEmpty() || label == shown ? shown : QString(shown + u' ' + label);
}

QString listOf(const CodeListUse &codes) {
    if (!codes || !*codes)
        return {};
    const QMap<QString, QString> &labels = (*codes)->labels();
    QStringList shown;
    for (auto code = labels.begin(); code != labels.end() && shown.size() < mostCodes; ++code)
        shown.append(named(code.key(), code.value()));
    const QString rest = labels.size() > mostCodes ? u"等 %1 个"_s.arg(labels.size()) : QString();
    return u"可用："_s + shown.join(u"；") + rest;
}

QString allowedBy(const ValueRules &rules) {
    QStringList allowed{listOf(rules.codes), listOf(rules.flags),
                        rules.pattern ? QString(u"形式：" + rules.pattern->expression()) : QString()};
    allowed.removeAll(QString());
    return allowed.join(u"；");
}

QString countsOf(bool required, bool repeatable) {
    return (required ? u"必备，"_s : QString()) + (repeatable ? u"可重复"_s : u"不可重复"_s);
}

QString subfieldsOf(const FieldRules &field) {
    QStringList shown;
    for (const SubfieldRules &subfield : field.subfields)
        shown.append(named(u'$' + QString(QChar(subfield.code)), subfield.label));
    return shown.isEmpty() ? QString() : u"可用："_s + shown.join(u"；");
}

QString ofRule(const Rule &rule) {
    return rule.ifText.isEmpty() ? QString(u"要求：" + rule.thenText)
                                 : QString(u"要求：若 " + rule.ifText + u"，则 " + rule.thenText);
}

QString ofPosition(const Finding &finding, const ValueRules &value, const QString &place) {
    for (const PositionRules &position : value.positions) {
        if (position.start > finding.start || finding.start > position.end)
            continue;
        const QString range = position.end > position.start ? u"%1—%2"_s.arg(position.start).arg(position.end)
                                                            : QString::number(position.start);
        return place + u"第%1位 %2。"_s.arg(range, position.label) + allowedBy(position);
    }
    return {};
}

} // namespace

QString definitionOf(const Finding &finding, const Schema &schema) {
    if (finding.rule >= 0)
        return size_t(finding.rule) < schema.rules.size() ? ofRule(schema.rules[size_t(finding.rule)]) : QString();
    const FieldRules *field = schema.field(finding.tag);
    if (!field)
        return {};
    const QString fieldPlace = named(tagName(finding.tag), field->label);
    if (finding.indicator)
        return fieldPlace + u"，指示符%1。"_s.arg(finding.indicator) +
               (field->indicators[finding.indicator - 1] ? allowedBy(*field->indicators[finding.indicator - 1])
                                                         : QString());
    if (finding.code == noCode && finding.check == Check::UndefinedSubfield)
        return fieldPlace + u"。"_s + subfieldsOf(*field);
    if (finding.code == noCode)
        return finding.start >= 0
                   ? ofPosition(finding, *field, tagName(finding.tag))
                   : fieldPlace + u"："_s + countsOf(field->required, field->repeatable) + u"。" + allowedBy(*field);
    const SubfieldRules *subfield = field->subfield(finding.code);
    if (!subfield)
        return fieldPlace + u"。"_s + subfieldsOf(*field);
    const QString place = tagName(finding.tag) + u'$' + QChar(finding.code);
    if (finding.start >= 0)
        return ofPosition(finding, *subfield, place);
    return named(place, subfield->label) + u"：" + countsOf(subfield->required, subfield->repeatable) + u"。" +
           allowedBy(*subfield);
}

} // namespace schema
