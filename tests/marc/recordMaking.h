// Records and rows as the tests of this folder write and compare them.
#pragma once

#include "marc/fieldRows.h"
#include "marc/separators.h"
#include "support/recordText.h"
#include "support/testFolder.h"

namespace marc {

// Control characters stand as < | > (subfield, field, record), both ways.
inline QString visible(QString text) {
    return text.replace(subfieldDelimiter, u'<').replace(fieldTerminator, u'|').replace(recordTerminator, u'>');
}
inline QString real(QString text) {
    return text.replace(u'<', subfieldDelimiter).replace(u'|', fieldTerminator).replace(u'>', recordTerminator);
}

// "identifier=value" of each row, for comparing at a glance.
inline QString brief(const FieldRows &rows) {
    QStringList parts;
    for (const FieldRow &row : rows)
        parts.append(visible(row.identifier + u'=' + row.value));
    return parts.join(u' ');
}

} // namespace marc
