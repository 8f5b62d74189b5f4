// The text that describes the format (its syntax is explained at its beginning) and the three configuration files that
// are built from it. Also checks the office's template, whose rules must name subfields of the format.
#pragma once

#include "platform/result.h"
#include <QStringList>

namespace tools {

struct FormatField {
    QString tag; // three digits, or "???" for the field whose tag the user types
    QString name;
    QStringList subfields; // "$a name"
};

using Format = QList<FormatField>;

// Returns the fields in the order of the lines. Fails at the first malformed line: neither field nor subfield, a tag
// out of order or repeated, a code repeated in a field, a data field without subfields.
platform::Result<Format> parseFormat(const QStringList &lines);

// Return the texts of the three files. Lines end with CR LF.
QString fieldList(const Format &format);
QString subfieldList(const Format &format);
QString descriptions(const Format &format);

// Returns what is wrong with the first bad line of the template: a section that is unknown or does not follow an empty
// line, a rule for a subfield that the format lacks, a rule repeated in its section. Returns an empty string if the
// template is valid.
QString templateFault(const QStringList &lines, const Format &format);

} // namespace tools
