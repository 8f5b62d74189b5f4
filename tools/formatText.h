// The text that describes the format (its syntax is explained at its beginning) and the three configuration files that
// are built from it; the schema is built from it and from the text of the coded positions (see avramText). Also checks
// the office's template, whose rules must name subfields of the format.
#pragma once

#include "platform/result.h"
#include <QStringList>
#include <array>

namespace tools {

// The properties of a field or a subfield in the schema, besides its name.
struct FormatMarks {
    bool required = false;
    bool repeatable = false;
    QString pattern; // regular expression for the value; empty if there is none
};

struct FormatCode {
    QString code; // "#" represents a blank
    QString label;
};

struct FormatIndicator {
    bool any = false; // all values are allowed
    QString name;
    QList<FormatCode> codes;
};

struct FormatSubfield {
    QChar code;
    QString name;
    FormatMarks marks;
};

struct FormatField {
    QString tag; // three digits, or "???" for the field whose tag the user types
    QString name;
    FormatMarks marks;
    std::array<FormatIndicator, 2> indicators; // without a line of its own, an indicator must be blank
    QList<FormatSubfield> subfields;
};

using Format = QList<FormatField>;

// Returns the fields in the order of the lines. Fails at the first malformed line: neither field nor subfield, a tag
// out of order or repeated, a code repeated in a field, a data field without subfields.
platform::Result<Format> parseFormat(const QStringList &lines);

// Returns the codes of a list "a:name b c:name"; empty if an item has no code, or a code occurs twice.
QList<FormatCode> parseCodes(QStringView list);

// Return the texts of the three files. Lines end with CR LF.
QString fieldList(const Format &format);
QString subfieldList(const Format &format);
QString descriptions(const Format &format);

// Returns what is wrong with the first bad line of the template: a section that is unknown or does not follow an empty
// line, a rule for a subfield that the format lacks, a rule repeated in its section. Returns an empty string if the
// template is valid.
QString templateFault(const QStringList &lines, const Format &format);

} // namespace tools
