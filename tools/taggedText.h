// Sample records as a text that people can read and write. Records are parted by empty lines; a line that begins with
// ";" is a remark. The first line of a record is "LDR nam0# ###": leader positions 5 to 9 and 17 to 19. Each further
// line is a field: tag, blank and, below 010, the data; from 010 on two indicators, blank and the subfields, each
// "$", its code and its value. "#" stands for a blank in the leader, in indicators and in the coded fields 100 and 105
// to 199. In 4XX and 604 a subfield $1 begins an embedded field: "$1200 1#$a..." or, below 010, "$1001 data".
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

namespace tools {

struct TaggedField {
    QString tag;
    QString content; // indicators included, subfield delimiters as code 31, blanks as blanks
};

struct TaggedRecord {
    QString leader; // 8 characters
    QList<TaggedField> fields;
};

struct TaggedText {
    QList<TaggedRecord> records;
    QString error; // "line 12: ..."; empty when all is well
};

TaggedText parseTaggedText(const QString &text);

// The record in code page 936. Nothing where a character has no code.
std::optional<QByteArray> assemble(const TaggedRecord &record);

} // namespace tools
