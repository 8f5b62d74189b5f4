// The directory of a record, and the extraction of fields by it.
#pragma once

#include "marc/isoLayout.h"
#include "marc/rawRecord.h"
#include <QByteArray>
#include <QStringView>
#include <optional>

namespace marc {

// The parts of a record that are ASCII by the format, as views of the record. An entry contains the tag, which is
// compared as text, the length of the field in bytes, including its terminator, and its start in bytes from the base
// address.
struct DirectoryView {
    QStringView leader;             // the first 24 characters
    QStringView baseAddress;        // characters 13 to 17, counted from 1
    bool hasFieldTerminator = true; // after the leader; without one there is no directory
    bool damaged = false;           // the directory's length is not a multiple of 12; it then has no entries
    QStringView text;               // the entries, one after the other; empty if damaged

    qsizetype count() const { return text.size() / directoryEntryLength; }
    QStringView tag(qsizetype entry) const { return text.sliced(entry * directoryEntryLength, tagLength); }
    QStringView length(qsizetype entry) const {
        return text.sliced(entry * directoryEntryLength + tagLength, fieldLengthWidth);
    }
    QStringView start(qsizetype entry) const {
        return text.sliced(entry * directoryEntryLength + fieldStartAt, fieldStartWidth);
    }
};

DirectoryView viewDirectory(QStringView record);

// Returns whether the directory of a record in GBK, including its terminator, describes exactly the fields that the
// field terminators delimit.
bool directoryFits(QByteArrayView record);

// Extracts fields from the GBK form of a record, which is encoded once.
class FieldCutter {
public:
    explicit FieldCutter(const RawRecord &record);
    // For callers that already have the GBK form and keep it as long as the cutter.
    static FieldCutter over(QByteArrayView gbk);

    // Returns `length` bytes, decoded, from the offset base + start, counted from 0; bytes beyond the end of the record
    // are omitted. Returns std::nullopt, a failed cut, if the offset or the length is negative.
    std::optional<QString> cut(qint64 base, qint64 start, qint64 length) const;
    // Returns the same bytes, not decoded. Valid as long as the cutter.
    std::optional<QByteArrayView> cutBytes(qint64 base, qint64 start, qint64 length) const;

    qsizetype recordBytes() const { return m_bytes.size(); }

private:
    explicit FieldCutter(QByteArray bytes);
    QByteArray m_bytes;
};

// Limits the total size of the fields of one record: directory entries that overlap can refer to the same bytes many
// times, and a small record would fill the memory. Fields that do not overlap have less than the size of the record in
// total; the rest of the limit is for records with wrong lengths. Directory entries after the one that exceeds the
// limit are ignored.
class FieldAllowance {
public:
    static constexpr qsizetype timesTheRecord = 16;
    explicit FieldAllowance(const FieldCutter &cutter)
        : m_left(timesTheRecord * cutter.recordBytes()) {}

    // Subtracts the field's size; returns false if it exceeds the limit.
    bool admits(qsizetype size) { return (m_left -= size) >= 0; }

private:
    qsizetype m_left;
};

} // namespace marc
