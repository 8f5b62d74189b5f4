// Helpers to write and compare records and rows in the tests of this folder.
#pragma once

#include "marc/fieldRows.h"
#include "marc/isoLayout.h"
#include "support/recordText.h"
#include "support/testFolder.h"

namespace marc {

// Show the control characters as < | > (subfield, field, record), and convert them back.
inline QString visible(QString text) {
    return text.replace(subfieldDelimiter, u'<').replace(fieldTerminator, u'|').replace(recordTerminator, u'>');
}
inline QString real(QString text) {
    return text.replace(u'<', subfieldDelimiter).replace(u'|', fieldTerminator).replace(u'>', recordTerminator);
}

// Returns "identifier=value" for each row, as a short form for comparisons.
inline QString brief(const FieldRows &rows) {
    QStringList parts;
    for (const FieldRow &row : rows)
        parts.append(visible(row.identifier + u'=' + row.value));
    return parts.join(u' ');
}

} // namespace marc
