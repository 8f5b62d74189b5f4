// How a file becomes a series of records, and what a record's directory says. A RawRecord is the text of one record,
// decoded from GBK, from the first character of the leader up to and including the record terminator; it travels by
// value.
#pragma once

#include "platform/textFile.h"
#include <QList>
#include <QString>
#include <functional>
#include <optional>

namespace marc {

using RawRecord = QString;

// Cuts a file into records: one physical line gives one record at the most, a record wrapped over several lines is put
// together without the breaks, what stands behind the first terminator of a line is not used, and a last piece without
// a terminator is dropped. Memory: the record in hand.
class RecordCutter {
public:
    explicit RecordCutter(platform::LineReader &reader);

    // Moves on to the next record; false at the end of the file.
    bool next();
    // The record's bytes as they stood in the file, terminator included, line breaks left out.
    QByteArrayView bytes() const { return m_bytes; }
    // The record's text; each line decoded for itself.
    RawRecord record() const;

private:
    platform::LineReader &m_reader;
    QByteArray m_buffer;
    QByteArrayView m_bytes;
    QList<qsizetype> m_lineEnds; // ends of the joined lines but the last, in m_bytes
};

// The consumer says whether to go on.
void cutRecord(platform::LineReader &reader, const std::function<bool(const RawRecord &)> &consumer);

// The estimate of a file's records: its lines, empty ones included.
platform::Result<qint64> lineCount(const QString &path);

struct DirectoryEntry {
    QString tag;    // 3 characters, compared as text
    QString length; // 4 characters: bytes of the field, its terminator included
    QString start;  // 5 characters: bytes from the base address
};

// The parts of a record that are plain ASCII by the format, as they stand.
struct Directory {
    QString leader;                 // the first 24 characters
    QString baseAddress;            // characters 13 to 17
    bool hasFieldTerminator = true; // without one there is no directory at all
    bool damaged = false;           // its length is no multiple of 12; then there are no entries
    QList<DirectoryEntry> entries;  // in directory order
};

Directory decodeDirectory(const RawRecord &record);

// Cuts fields from the GBK form of a record, which is made once.
class FieldCutter {
public:
    explicit FieldCutter(const RawRecord &record);

    // The `length` bytes from byte base + start + 1 (counted from 1), decoded; what lies outside is left out. Nothing
    // where the position is below 1 or the length negative: the cut itself fails then.
    std::optional<QString> cut(qint64 base, qint64 start, qint64 length) const;
    // The same bytes, not decoded. Valid as long as the cutter.
    std::optional<QByteArrayView> cutBytes(qint64 base, qint64 start, qint64 length) const;

private:
    QByteArray m_bytes;
};

struct Subfield {
    QString code; // one character, or empty where nothing stands behind the delimiter
    QString value;
    bool negativeLength = false; // a delimiter with nothing to take: the value's length came out negative
};

// The subfields of a field whose terminator has been taken off, in order.
QList<Subfield> splitSubfields(QStringView field);

} // namespace marc
