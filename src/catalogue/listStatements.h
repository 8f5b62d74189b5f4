// The statements of the catalogue and store windows, in the exact wording of the program's single SQL dialect.
// Conditions, orders and keys are inserted unchanged.
#pragma once

#include <QString>

namespace catalogue {

// The catalogue list, and the report on the same rows.
QString catalogueStatement(const QString &condition, const QString &order);
QString reportStatement(const QString &condition, const QString &order);
// One row for the export.
QString exportStatement(const QString &zskid);

// One catalogue row in full, and its copies with their loans.
QString detailStatement(qint32 zskid);
QString copiesStatement(qint32 zskid);

// The store list and its deletions. A delete has the order term too, but only with a condition.
QString storeStatement(const QString &condition, const QString &order);
// Returns a condition that only the rows with these keys meet; without keys no row meets it. Servers accept tens of
// thousands of non-consecutive keys and find the rows by the index.
QString keysCondition(QList<qint64> keys);
// Selects key and record of the rows that meet a condition.
QString recordsStatement(const QString &condition);

QString deleteRowStatement(const QString &zskid);
QString deleteAllStatement(const QString &condition, const QString &order);

} // namespace catalogue
