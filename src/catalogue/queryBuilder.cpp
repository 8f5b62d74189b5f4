#include "catalogue/queryBuilder.h"
#include "platform/numbers.h"
#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace catalogue {

namespace {

struct Operator {
    QStringView label;
    QStringView sql;
    bool forText;
    bool forOthers;    // numbers and dates
    QStringView dates; // the operator in a date condition
    char16_t fill;     // replaces a digit that was not typed; 0 keeps the "_"
};

// In the order of the lists. With "=" the missing digits act as single-character wildcards. The ordering operators fill
// them so that the whole period is on the correct side.
constexpr auto operators = std::to_array<Operator>({
    {u"等于", u"=", true, true, u"Like ", 0},
    {u"不等于", u"<>", true, true, u"<>", 0},
    {u"包含", u"Like", true, false, {}, 0},
    {u"大于", u">", false, true, u">", u'9'},
    {u"不小于", u">=", false, true, u">=", u'0'},
    {u"小于", u"<", false, true, u"<", u'0'},
    {u"不大于", u"<=", false, true, u"<=", u'9'},
});

FieldType typeNamed(QStringView name, const QueryRules &rules) {
    if (name == u"数字")
        return FieldType::Number;
    if (name == u"日期" && rules.knowsDates)
        return FieldType::Date;
    return FieldType::Text;
}

QString joined(const QString &before, QStringView separator, const QString &term) {
    return before.isEmpty() ? term : QString(before + separator + term);
}

QString joined(const TermGroup &group, QString Term::*text, QStringView separator) {
    QString result;
    for (const Term &term : group)
        result = joined(result, separator, term.*text);
    return result;
}

// The separators of terms in a group and of groups, in a statement and in words.
struct Spelling {
    QString Term::*text;
    QStringView both;
    QStringView either;
};
constexpr Spelling inSql{&Term::sql, u" And ", u" OR "};
constexpr Spelling inWords{&Term::words, u" 并且 ", u" 或者 "};

QString spelled(const QList<TermGroup> &groups, const Spelling &spelling) {
    QString result;
    for (const TermGroup &group : groups)
        result = joined(result, spelling.either, u'(' + joined(group, spelling.text, spelling.both) + u')');
    return result;
}

bool hasLoneQuote(QString value) {
    return value.remove(u"''"_s).contains(u'\'');
}

} // namespace

QStringList operatorsOf(FieldType type) {
    QStringList result;
    for (const Operator &row : operators) {
        if (type == FieldType::Text ? row.forText : row.forOthers)
            result.append(row.label.toString());
    }
    return result;
}

QString maskOf(FieldType type) {
    return type == FieldType::Date ? dateMask.toString() : QString();
}

QString emptyValue(QStringView mask) {
    return mask == dateMask ? emptyDate.toString() : QString();
}

QString fuhaoToSql(QStringView label) {
    const auto row = std::ranges::find(operators, label, &Operator::label);
    return row == operators.end() ? QString() : row->sql.toString();
}

QString dateSql(const QString &fieldName, QStringView sqlOperator, const QString &value) {
    QString compared = value;
    compared.replace(u'-', u'/'); // style 111 of the conversion is yyyy/mm/dd
    const auto row = std::ranges::find(operators, sqlOperator, &Operator::sql);
    if (row == operators.end())
        return {};
    if (row->fill != 0)
        compared.replace(u'_', QChar(row->fill));
    return u"Convert(varchar(10)," + fieldName + u",111) " + row->dates + u"'" + compared + u"'";
}

platform::Status QueryBuilder::load(const QString &names, const QString &labels, const QString &types) {
    const QStringList nameList = names.isEmpty() ? QStringList() : names.split(u',');
    const QStringList labelList = labels.split(u',');
    const QStringList typeList = types.split(u',');
    if (m_rules.fieldLimit && nameList.size() > *m_rules.fieldLimit)
        return platform::Failure{u"查询项目太多，下标越界。"_s};
    for (qsizetype i = 0; i < nameList.size(); ++i)
        m_fieldDefs.append({nameList[i], labelList.value(i), typeNamed(typeList.value(i), m_rules)});
    m_entered.sortLabels = this->labels();
    return platform::success();
}

QStringList QueryBuilder::labels() const {
    QStringList result;
    for (const FieldDef &field : m_fieldDefs)
        result.append(field.fieldLabel);
    return result;
}

bool QueryBuilder::chooseField(qsizetype field) {
    if (field < 0 || field >= m_fieldDefs.size() || m_fieldDefs[field].fieldType == m_curType)
        return false;
    m_curType = m_fieldDefs[field].fieldType;
    return true;
}

std::optional<QString> QueryBuilder::fragment(const FieldDef &field, QStringView sqlOperator,
                                              const QString &value) const {
    switch (field.fieldType) {
    case FieldType::Number:
        if (!platform::isNumericText(value))
            return std::nullopt;
        return field.fieldName + sqlOperator + value;
    case FieldType::Date:
        return dateSql(field.fieldName, sqlOperator, value);
    case FieldType::Text:
        break;
    }
    if (sqlOperator == u"Like")
        return field.fieldName + u" Like '%" + value + u"%'";
    return field.fieldName + sqlOperator + u"'" + value + u"'";
}

bool QueryBuilder::addCondition(qsizetype field, const QString &fuhao, const QString &value) {
    if (value.isEmpty() || value == emptyDate || field < 0 || field >= m_fieldDefs.size())
        return false;
    const FieldDef &chosen = m_fieldDefs[field];
    const std::optional<QString> condition = fragment(chosen, fuhaoToSql(fuhao), value);
    if (!condition)
        return false;
    m_entered.current.append({*condition, chosen.fieldLabel + u"'" + fuhao + u"'" + value, !hasLoneQuote(value)});
    return true;
}

QString QueryBuilder::curSql() const {
    return joined(m_entered.current, inSql.text, inSql.both);
}

QString QueryBuilder::unionSql() const {
    return spelled(m_entered.merged, inSql);
}

QString QueryBuilder::signSql() const {
    return joined(m_entered.current, &Term::words, u";");
}

QStringList QueryBuilder::totalSql() const {
    QStringList lines;
    for (const TermGroup &group : m_entered.merged)
        lines.append(joined(group, &Term::words, u";"));
    return lines;
}

void QueryBuilder::merge() {
    if (!m_entered.current.isEmpty())
        m_entered.merged.append(std::exchange(m_entered.current, {}));
}

bool QueryBuilder::addSortTerm(const QString &label, bool ascending) {
    const auto field = std::ranges::find(m_fieldDefs, label, &FieldDef::fieldLabel);
    if (label.isEmpty() || field == m_fieldDefs.end())
        return false;
    m_entered.orderSql = joined(m_entered.orderSql, u",", field->fieldName + (ascending ? u" Asc"_s : u" Desc"_s));
    m_entered.orderWords = joined(m_entered.orderWords, u";", u"'" + label + u"'" + (ascending ? u'升' : u'降'));
    m_entered.sortLabels.removeOne(label); // a field can be used for sorting once
    return true;
}

void QueryBuilder::clear() {
    m_entered = {};
    m_entered.sortLabels = labels();
}

Query QueryBuilder::findData() const {
    QList<TermGroup> groups = m_entered.merged;
    if (!m_entered.current.isEmpty())
        groups.append(m_entered.current);
    const auto spelling = [&](const Spelling &as) {
        // Conditions not merged get parentheses only after another group.
        return m_entered.merged.isEmpty() ? joined(m_entered.current, as.text, as.both) : spelled(groups, as);
    };
    const auto compares = [](const TermGroup &group) { return std::ranges::all_of(group, &Term::compares); };
    QString words = spelling(inWords);
    if (!std::ranges::all_of(groups, compares))
        words += u"（⚠ 值里有单引号，查的可能不是这个意思）";
    return {{spelling(inSql), words}, m_entered.orderSql};
}

void QueryBuilder::unload() {
    clear();
    m_curType.reset();
}

} // namespace catalogue
