// What a record's directory says, and the fields that are cut by it.
#pragma once

#include "marc/rawRecord.h"
#include "marc/separators.h"
#include <QByteArray>
#include <QStringView>
#include <optional>

namespace marc {

// The parts of a record that are plain ASCII by the format, as they stand: views into the record. An entry has the tag,
// compared as text, the bytes of the field, its terminator included, and where it starts, from the base address.
struct DirectoryView {
    QStringView leader;             // the first 24 characters
    QStringView baseAddress;        // characters 13 to 17
    bool hasFieldTerminator = true; // after the leader; without one there is no directory at all
    bool damaged = false;           // its length is no multiple of 12; then there are no entries
    QStringView text;               // the entries, side by side; empty where damaged

    qsizetype count() const { return text.size() / directoryEntryLength; }
    QStringView tag(qsizetype entry) const { return text.sliced(entry * directoryEntryLength, 3); }
    QStringView length(qsizetype entry) const { return text.sliced(entry * directoryEntryLength + 3, 4); }
    QStringView start(qsizetype entry) const { return text.sliced(entry * directoryEntryLength + 7, 5); }
};

DirectoryView viewDirectory(QStringView record);

// Whether the directory of a record in GBK, terminator included, cuts exactly the fields that its terminators part.
bool directoryFits(QByteArrayView record);

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

} // namespace marc
