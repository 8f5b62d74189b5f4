// Splits a statement by the quoting rule of the SQL standard alone: apostrophes delimit a literal, and two adjacent
// apostrophes within a literal represent one. Independent of the program's tokenizer, which it checks.
#pragma once

#include <QString>
#include <QStringList>

namespace fuzz {

struct Apart {
    QString outside;      // with "?" in place of each literal
    QStringList literals; // as the server reads them; an unclosed literal extends to the end
};

inline Apart apart(QStringView statement) {
    Apart parts;
    bool within = false;
    for (qsizetype at = 0; at < statement.size(); ++at) {
        if (statement[at] != u'\'') {
            (within ? parts.literals.last() : parts.outside) += statement[at];
        } else if (within && at + 1 < statement.size() && statement[at + 1] == u'\'') {
            parts.literals.last() += statement[++at];
        } else {
            within = !within;
            if (within) {
                parts.outside += u'?';
                parts.literals.append(QString());
            }
        }
    }
    return parts;
}

} // namespace fuzz
