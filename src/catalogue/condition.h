// Which rows a list asks for: the text that goes after " where " and the same in words. Both are made in one place and
// travel as one value, so that the words on the screen say what a statement does.
#pragma once

#include <QString>

namespace catalogue {

struct Condition {
    QString sql; // empty: all rows
    QString words;

    bool isEmpty() const { return sql.isEmpty(); }
};

// The line under a list: the condition in words, or that there is none.
QString conditionLine(const Condition &condition);

} // namespace catalogue
