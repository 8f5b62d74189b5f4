// The state machine of the query dialogs: makes the condition and the order of a list from fields, conditions, merged
// groups and sort terms. The state consists of the conditions as added; the statement and the readable texts are made
// from them. Values are inserted as typed, without escaping.
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
    QString fieldName; // as used in statements
    QString fieldLabel;
    FieldType fieldType = FieldType::Text;
};

// The differences between the dialogs of the catalogue and of the store.
struct QueryRules {
    std::optional<qsizetype> fieldLimit; // maximum number of fields; none: unlimited
    bool knowsDates = true;              // if false, a date field counts as text
    QStringView queried = u"书库";       // for the user
};
inline constexpr QueryRules catalogueRules{};
inline constexpr QueryRules storeRules{46, false, u"套录库"};

struct Query {
    Condition condition;
    QString order;
};

inline constexpr QStringView dateMask = u"####-##-##";
inline constexpr QStringView emptyDate = u"____-__-__"; // the text of the date mask while nothing is typed

// Returns the operators of a type in the order of the list.
QStringList operatorsOf(FieldType type);
// Returns the mask of the value box for a type, or an empty text.
QString maskOf(FieldType type);
// Returns the text of the value box with this mask while nothing is typed.
QString emptyValue(QStringView mask);
// Returns the SQL of an operator's label, or an empty text for an unknown label.
QString fuhaoToSql(QStringView label);
// Returns the condition on a date column. "_" marks a digit that was not typed, so that a partial date is a range.
QString dateSql(const QString &fieldName, QStringView sqlOperator, const QString &value);

// A condition as added.
struct Term {
    QString sql;
    QString words;
    bool compares; // to the value as typed; false if a quote in the value may change the meaning of the statement
};
// A group is true if all its terms are; a query is true if at least one of its groups is.
using TermGroup = QList<Term>;

// The conditions and the order entered for a query.
struct EnteredQuery {
    TermGroup current; // not merged yet
    QList<TermGroup> merged;
    QString orderSql;
    QString orderWords;
    QStringList sortLabels; // not used for sorting yet

    bool isEmpty() const { return current.isEmpty() && merged.isEmpty() && orderSql.isEmpty(); }
};

class QueryBuilder {
public:
    explicit QueryBuilder(QueryRules rules)
        : m_rules(rules) {}

    // Sets the fields from three comma-separated lists of corresponding items. Fails and takes no field if they exceed
    // the limit. Call once.
    platform::Status load(const QString &names, const QString &labels, const QString &types);

    const QList<FieldDef> &fieldDefs() const { return m_fieldDefs; }
    QStringList labels() const;
    std::optional<FieldType> curType() const { return m_curType; }
    QString curSql() const; // conditions added since the last merge
    QString unionSql() const;
    // The readable texts, and the labels not yet used for sorting.
    QString signSql() const;
    QStringList totalSql() const;
    const QString &lOrderby() const { return m_entered.orderWords; }
    const QStringList &sortLabels() const { return m_entered.sortLabels; }

    // The conditions and the order entered so far. enter() replaces them, for the same fields.
    const EnteredQuery &entered() const { return m_entered; }
    void enter(const EnteredQuery &query) { m_entered = query; }

    // Returns whether the type of the chosen field differs from the previous one, so that its operators must be listed.
    bool chooseField(qsizetype field);
    // Returns whether the condition was added; otherwise nothing changes. `fuhao` is the label of the operator, `value`
    // the text of the box with mask characters and blanks.
    bool addCondition(qsizetype field, const QString &fuhao, const QString &value);
    void merge();
    // Returns whether a field with this label exists and was added.
    bool addSortTerm(const QString &label, bool ascending);
    void clear();
    // Returns the result: the merged groups, followed by the conditions not merged yet as the last group.
    Query findData() const;
    void unload();

private:
    std::optional<QString> fragment(const FieldDef &field, QStringView sqlOperator, const QString &value) const;

    QueryRules m_rules;
    QList<FieldDef> m_fieldDefs;
    std::optional<FieldType> m_curType;
    EnteredQuery m_entered;
};

} // namespace catalogue
