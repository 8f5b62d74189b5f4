// Selects the rows of a list: the SQL after " where " and the same condition in words. Both are made together and
// passed as one value, so that the displayed words always match the statement.
#pragma once

#include <QString>

namespace catalogue {

struct Condition {
    QString sql; // empty: all rows
    QString words;

    bool isEmpty() const { return sql.isEmpty(); }
};

// Returns the line below a list: the condition in words, or that there is none.
QString conditionLine(const Condition &condition);

} // namespace catalogue
