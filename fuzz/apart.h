// A statement taken apart by the rule of the standard alone: apostrophes begin and end a literal, two side by side
// within one stand for one. Knows nothing of the program's own way to cut statements, which it judges.
#pragma once

#include <QString>
#include <QStringList>

namespace fuzz {

struct Apart {
    QString outside;      // with "?" in the place of each literal
    QStringList literals; // what the server would take in; an unclosed one reaches to the end
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
