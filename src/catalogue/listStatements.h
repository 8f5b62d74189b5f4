// The statements of the catalogue and store windows, in the system's one dialect and to the letter. Conditions, orders
// and keys are put in as they stand.
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

// The store list, and the two deletions. The order term rides along on a delete, but only where there is a condition.
QString storeStatement(const QString &condition, const QString &order);
// The condition that exactly the rows of these keys meet; no row where there is none. Servers take it, and find the
// rows by the index, also for tens of thousands of keys without two neighbours.
QString keysCondition(QList<qint64> keys);
// Key and record of the rows that meet a condition.
QString recordsStatement(const QString &condition);

QString deleteRowStatement(const QString &zskid);
QString deleteAllStatement(const QString &condition, const QString &order);

} // namespace catalogue
