// What the program knows of the format in words: one text for people, its shape told at its head, and the three files
// that the program reads of it. Beside it the office's template, whose rules must speak of subfields that exist.
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

// Fails with the line where the text breaks its shape: a line that is neither field nor subfield, tags out of order or
// twice, a code twice in a field, a data field without subfields.
platform::Result<Format> parseFormat(const QStringList &lines);

// The texts of the three files, lines ended by CR LF.
QString fieldList(const Format &format);
QString subfieldList(const Format &format);
QString descriptions(const Format &format);

// What is wrong with the template's first bad line: a section that is unknown or would be lost, a rule about a subfield
// that the format lacks, a rule twice in its section. Empty where all is well.
QString templateFault(const QStringList &lines, const Format &format);

} // namespace tools
