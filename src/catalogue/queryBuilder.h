// The state machine under the query dialogs: fields, conditions, merged groups and sort terms become the condition and
// the order of a list. Its state is the conditions as they were added; the statement and everything that a person reads
// of it are made from these. Values go in as typed: nothing is escaped.
#pragma once

#include "catalogue/condition.h"
#include "platform/result.h"
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace catalogue {

enum class FieldType { Text = 0, Number = 1, Date = 2 };

struct FieldDef {
    QString fieldName; // the column as it goes into a statement
    QString fieldLabel;
    FieldType fieldType = FieldType::Text;
};

// What sets the dialog of the catalogue and that of the store apart.
struct QueryRules {
    std::optional<qsizetype> fieldLimit; // room for fields; none: as many as the lists hold
    bool knowsDates = true;              // otherwise a date field counts as text
};
inline constexpr QueryRules catalogueRules{};
inline constexpr QueryRules storeRules{46, false};

struct Query {
    Condition condition;
    QString order;
};

inline constexpr QStringView dateMask = u"####-##-##";
inline constexpr QStringView emptyDate = u"____-__-__"; // what the date mask shows with nothing typed

// The operators of a type, in the order of the list.
QStringList operatorsOf(FieldType type);
// The mask of the value box for a type; empty where there is none.
QString maskOf(FieldType type);
// What the value box shows under a mask with nothing typed.
QString emptyValue(QStringView mask);
// An operator's label in SQL; empty for an unknown one.
QString fuhaoToSql(QStringView label);
// The condition on a date column; "_" stands where a digit was not typed, so that a date given in part is a range.
QString dateSql(const QString &fieldName, QStringView sqlOperator, const QString &value);

// A condition as it was added.
struct Term {
    QString sql;
    QString words;
    bool compares; // with the value as it was typed; a quote in it may make something else of the statement
};
// All terms of a group are to hold; one group of several is enough.
using TermGroup = QList<Term>;

class QueryBuilder {
public:
    explicit QueryBuilder(QueryRules rules)
        : m_rules(rules) {}

    // Three comma-separated lists in step with each other. Fails, with no field taken, where they exceed the limit.
    platform::Status load(const QString &names, const QString &labels, const QString &types);

    const QList<FieldDef> &fieldDefs() const { return m_fieldDefs; }
    QStringList labels() const;
    std::optional<FieldType> curType() const { return m_curType; }
    QString curSql() const; // since the last merge
    QString unionSql() const;
    // The readable forms, and the labels not yet used for sorting.
    QString signSql() const;
    QStringList totalSql() const;
    const QString &lOrderby() const { return m_lOrderby; }
    const QStringList &sortLabels() const { return m_sortLabels; }

    // Whether the type of the chosen field is a new one, so that its operators have to be listed.
    bool chooseField(qsizetype field);
    // Whether the condition was taken; otherwise nothing has changed. `fuhao` is the operator's label, `value` the
    // box's text with mask characters and blanks.
    bool addCondition(qsizetype field, const QString &fuhao, const QString &value);
    void merge();
    // Whether there was a label to sort by.
    bool addSortTerm(const QString &label, bool ascending);
    void clear();
    // The result: the merged groups, and what was not merged as the last of them.
    Query findData() const;
    void unload();

private:
    std::optional<QString> fragment(const FieldDef &field, QStringView sqlOperator, const QString &value) const;

    QueryRules m_rules;
    QList<FieldDef> m_fieldDefs;
    std::optional<FieldType> m_curType;
    TermGroup m_current;
    QList<TermGroup> m_merged;
    QString m_orderSql;
    QString m_lOrderby;
    QStringList m_sortLabels;
};

} // namespace catalogue
