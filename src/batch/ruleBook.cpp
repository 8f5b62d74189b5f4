#include "batch/ruleBook.h"
#include "batch/ruleAdvice.h"
#include "schema/definition.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

struct KindRow {
    Kind kind;
    QStringView key, label;
};

constexpr auto kinds = std::to_array<KindRow>({
    {Kind::Unchecked, u"unchecked", u"未能检查"},
    {Kind::Directory, u"directory", u"目次区"},
    {Kind::Required, u"required", u"必备字段"},
    {Kind::Repeated, u"repeated", u"重复字段"},
    {Kind::Template, u"template", u"模板"},
    {Kind::Isbn, u"isbn", u"ISBN"},
    {Kind::Issn, u"issn", u"ISSN"},
    {Kind::InBatch, u"inBatch", u"批内重复"},
    {Kind::InStore, u"inStore", u"查重"},
    {Kind::Refused, u"refused", u"未成功"},
    {Kind::LeftOut, u"leftOut", u"已跳过"},
    {Kind::Format, u"format", u"格式"},
    {Kind::Rule, u"rule", u"规则"},
});
static_assert(kinds.size() == kindCount && std::ranges::is_sorted(kinds, {}, &KindRow::kind));

constexpr QStringView rulePrefix = u"rule:";
constexpr int firstCheck = int(kindCount), firstRule = firstCheck + int(schema::checkCount);

bool isOfSchema(const Remark &remark) {
    return remark.kind == Kind::Rule || remark.kind == Kind::Format;
}

} // namespace

int ruleOf(const Remark &remark) {
    if (remark.kind == Kind::Rule && remark.check == schema::Check::ExternalRule)
        return firstRule + remark.rule;
    return isOfSchema(remark) ? firstCheck + int(remark.check) : int(remark.kind);
}

RuleBook::RuleBook(std::shared_ptr<const schema::Schema> schema)
    : m_schema(std::move(schema)) {}

int RuleBook::count() const {
    return firstRule + (m_schema ? int(m_schema->rules.size()) : 0);
}

QString RuleBook::keyOf(int rule) const {
    if (rule < firstCheck)
        return kinds[size_t(rule)].key.toString();
    return rule < firstRule ? nameOf(schema::Check(rule - firstCheck)).toString() : rulePrefix + labelOf(rule);
}

QString RuleBook::labelOf(int rule) const {
    if (rule < firstCheck)
        return kinds[size_t(rule)].label.toString();
    if (rule < firstRule)
        return schema::labelOf(schema::Check(rule - firstCheck)).toString();
    if (rule >= count())
        return {};
    const QString &name = m_schema->rules[size_t(rule - firstRule)].name;
    return name.isEmpty() ? u"第%1条规则"_s.arg(rule - firstRule + 1) : name;
}

QString RuleBook::labelOfKey(const QString &key) const {
    for (int rule = 0; rule < count(); ++rule)
        if (keyOf(rule) == key)
            return labelOf(rule);
    return key.startsWith(rulePrefix) ? key.sliced(rulePrefix.size()) : key;
}

QString RuleBook::wordsOf(const Remark &remark) const {
    return isOfSchema(remark) && m_schema ? schema::wordsOf(findingOf(remark), *m_schema) : remark.text;
}

QString RuleBook::explanationOf(const Remark &remark) const {
    const QString definition =
        isOfSchema(remark) && m_schema ? schema::definitionOf(findingOf(remark), *m_schema) : QString();
    return adviceOn(remark) + definition;
}

} // namespace batch
