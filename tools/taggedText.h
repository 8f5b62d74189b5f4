// Sample records as a text that people can read and write. Records are parted by empty lines; a line that begins with
// ";" is a remark. The first line of a record is "LDR nam0# ###": leader positions 5 to 9 and 17 to 19. Each further
// line is a field: tag, blank and, below 010, the data; from 010 on two indicators, blank and the subfields, each
// "$", its code and its value. "#" stands for a blank in the leader, in indicators and in the coded fields 100 and 105
// to 199. In 4XX and 604 a subfield $1 begins an embedded field: "$1200 1#$a..." or, below 010, "$1001 data".
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QList>
#include <QStringList>

namespace tools {

struct TaggedField {
    QString tag;
    QString content; // indicators included, subfield delimiters as code 31, blanks as blanks
};

struct TaggedRecord {
    QString leader; // 8 characters
    QList<TaggedField> fields;
};

// Fails with the first malformed line, as "line 12: ...".
platform::Result<QList<TaggedRecord>> parseTaggedText(const QStringList &lines);

// The record in code page 936.
QByteArray assemble(const TaggedRecord &record);

} // namespace tools
