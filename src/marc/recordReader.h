// How a file becomes a series of records, and what a record's directory says. A RawRecord is the text of one record,
// decoded from GBK, from the first character of the leader up to and including the record terminator; it travels by
// value.
#pragma once

#include "marc/separators.h"
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
    // Valid until the next call of next().
    QByteArrayView bytes() const { return m_buffer; }
    // The record's text; each line decoded for itself.
    RawRecord record() const;

private:
    platform::LineReader &m_reader;
    QByteArray m_buffer;
    QList<qsizetype> m_lineEnds; // where joined lines meet behind a byte that could start a character
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
    bool hasFieldTerminator = true; // behind the leader; without one there is no directory at all
    bool damaged = false;           // its length is no multiple of 12; then there are no entries
    QList<DirectoryEntry> entries;  // in directory order
};

Directory decodeDirectory(const RawRecord &record);

// The same as views into the record, for callers that look at few entries of many records.
struct DirectoryView {
    QStringView leader;
    QStringView baseAddress;
    bool hasFieldTerminator = true;
    bool damaged = false;
    QStringView text; // the entries, side by side; empty where damaged

    qsizetype count() const { return text.size() / directoryEntryLength; }
    QStringView tag(qsizetype entry) const { return text.sliced(entry * directoryEntryLength, 3); }
    QStringView length(qsizetype entry) const { return text.sliced(entry * directoryEntryLength + 3, 4); }
    QStringView start(qsizetype entry) const { return text.sliced(entry * directoryEntryLength + 7, 5); }
};

DirectoryView viewDirectory(QStringView record);

// Cuts fields from the GBK form of a record, which is made once.
class FieldCutter {
public:
    explicit FieldCutter(const RawRecord &record);
    // For callers that hold the GBK form already and keep it as long as the cutter.
    static FieldCutter over(QByteArrayView gbk);

    // The `length` bytes from byte base + start + 1 (counted from 1), decoded; what lies outside is left out. Nothing
    // where the position is below 1 or the length negative: the cut itself fails then.
    std::optional<QString> cut(qint64 base, qint64 start, qint64 length) const;
    // The same bytes, not decoded. Valid as long as the cutter.
    std::optional<QByteArrayView> cutBytes(qint64 base, qint64 start, qint64 length) const;

    qsizetype recordBytes() const { return m_bytes.size(); }

private:
    explicit FieldCutter(QByteArray bytes);
    QByteArray m_bytes;
};

// How much the fields of one record may come to, all taken together: directory entries that overlap can ask for the
// same bytes over and over, and a small record would fill the memory. Fields that share nothing come to less than the
// record once; the room beyond is for records whose lengths are wrong. What stands in the directory behind the entry
// that goes over the limit is not looked at.
class FieldAllowance {
public:
    static constexpr qsizetype timesTheRecord = 16;
    explicit FieldAllowance(const FieldCutter &cutter)
        : m_left(timesTheRecord * cutter.recordBytes()) {}

    // Takes the field's size; false where it goes over the limit.
    bool admits(qsizetype size) { return (m_left -= size) >= 0; }

private:
    qsizetype m_left;
};

// Walks the subfields of a field whose terminator has been taken off.
class SubfieldWalk {
public:
    explicit SubfieldWalk(QStringView field)
        : m_rest(field) {}

    bool next();                                  // false when no delimiter is left
    QStringView code() const { return m_code; }   // one character; empty where nothing stands behind the delimiter
    QStringView value() const { return m_value; } // empty where its length is negative
    // A delimiter side by side with the next one, or the field's only delimiter as its last character: the length of
    // the value comes out below 0.
    bool negativeLength() const { return m_negativeLength; }
    // What stands behind the last delimiter that was passed; before the first step the whole field.
    QStringView rest() const { return m_rest; }

private:
    QStringView m_rest;
    QStringView m_code;
    QStringView m_value;
    bool m_negativeLength = false;
    bool m_first = true;
};

struct Subfield {
    QString code; // one character, or empty where nothing stands behind the delimiter
    QString value;
    bool negativeLength = false; // as told at SubfieldWalk
};

// The subfields of a field whose terminator has been taken off, in order.
QList<Subfield> splitSubfields(QStringView field);

} // namespace marc
