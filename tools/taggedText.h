// Sample records as text that people can read and edit. Empty lines separate the records; a line that begins with ";"
// is a remark. The first line of a record is "LDR nam0# ###": leader positions 5 to 9 and 17 to 19. Each further line
// is a field: the tag, a blank and, for tags below 010, the data; from 010 on, two indicators, a blank and the
// subfields, each "$", its code and its value. "#" represents a blank in the leader, in indicators and in the coded
// fields 100 and 105 to 199. In 4XX and 604, subfield $1 begins an embedded field: "$1200 1#$a..." or, for tags below
// 010, "$1001 data".
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QList>
#include <QStringList>

namespace tools {

struct TaggedField {
    QString tag;
    QString content; // including the indicators; subfield delimiters as code 31
};

struct TaggedRecord {
    QString leader; // 8 characters
    QList<TaggedField> fields;
};

// Fails at the first malformed line with "line 12: ...".
platform::Result<QList<TaggedRecord>> parseTaggedText(const QStringList &lines);

// Returns the record encoded in code page 936.
QByteArray assemble(const TaggedRecord &record);

} // namespace tools
