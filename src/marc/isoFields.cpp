#include "marc/isoFields.h"
#include "marc/fieldedRecord.h"
#include <algorithm>
#include <numeric>

namespace marc {

namespace {

constexpr char fieldEnd = char(fieldTerminator);
constexpr char recordEnd = char(recordTerminator);

QByteArray padded(qsizetype value, int width) {
    return QByteArray::number(value).rightJustified(width, '0');
}

bool isBreak(char byte) {
    return byte == '\r' || byte == '\n';
}

} // namespace

bool IsoFields::take(QByteArrayView record) {
    m_right = m_damaged = false;
    if (!record.isEmpty() && record.back() == recordEnd)
        record = record.chopped(1);
    bool usable = cut(record);
    m_right = usable && entriesAgree(true);
    if (m_right)
        return takeEntries();
    if (record.contains('\r') || record.contains('\n')) {
        m_unwrapped.resize(record.size());
        const auto end = std::remove_copy_if(record.begin(), record.end(), m_unwrapped.begin(), isBreak);
        m_unwrapped.truncate(end - m_unwrapped.begin());
        usable = cut(m_unwrapped);
        m_right = usable && entriesAgree(true);
    }
    if (!usable)
        return false;
    if (m_right || entriesAgree(false))
        return takeEntries();
    m_damaged = true;
    return tagsByPlaces();
}

// Splits the record into leader, directory and the pieces that end with field terminators.
bool IsoFields::cut(QByteArrayView record) {
    const qsizetype end = record.indexOf(fieldEnd);
    if (end < leaderLength)
        return false;
    m_leader = record.first(leaderLength);
    m_directory = record.sliced(leaderLength, end - leaderLength);
    m_body = record.sliced(end + 1);
    m_pieces.clear();
    for (QByteArrayView rest = m_body; !rest.isEmpty();) {
        const qsizetype at = rest.indexOf(fieldEnd);
        if (at < 0)
            return false; // content without a terminator belongs to no field
        m_pieces.push_back(rest.first(at + 1));
        rest = rest.sliced(at + 1);
    }
    readEntries();
    return true;
}

void IsoFields::readEntries() {
    m_entries.clear();
    if (m_directory.size() % directoryEntryLength != 0)
        return;
    for (qsizetype at = 0; at < m_directory.size(); at += directoryEntryLength)
        m_entries.push_back({m_directory.sliced(at, tagLength),
                             numberOf(m_directory.sliced(at + tagLength, fieldLengthWidth)),
                             numberOf(m_directory.sliced(at + fieldStartAt, fieldStartWidth)), 0});
}

// Returns whether the entries, sorted by start, follow each other without gaps and are as many as the pieces. With
// `toTheByte` their lengths must also be those of the pieces; otherwise the directory may be from before a change of
// encoding.
bool IsoFields::entriesAgree(bool toTheByte) {
    if (m_entries.size() != m_pieces.size() || m_directory.size() % directoryEntryLength != 0)
        return false;
    m_byStart.resize(m_entries.size());
    std::iota(m_byStart.begin(), m_byStart.end(), size_t(0));
    const auto start = [this](size_t entry) { return m_entries[entry].start; };
    if (!std::ranges::is_sorted(m_byStart, {}, start))
        std::ranges::sort(m_byStart, {}, start);
    qint64 expected = 0;
    for (size_t i = 0; i < m_byStart.size(); ++i) {
        Entry &entry = m_entries[m_byStart[i]];
        if (entry.start != expected || entry.length <= 0 || !isTag(entry.tag))
            return false;
        if (toTheByte && entry.length != m_pieces[i].size())
            return false;
        expected += entry.length;
        entry.piece = qsizetype(i);
    }
    return true;
}

bool IsoFields::takeEntries() {
    m_tags.clear();
    bool inOrder = true;
    for (size_t i = 0; i < m_entries.size(); ++i) {
        m_tags.append(m_entries[i].tag);
        inOrder = inOrder && m_entries[i].piece == qsizetype(i);
    }
    m_data = m_body;
    if (inOrder)
        return true;
    m_joined.clear();
    for (const Entry &entry : m_entries)
        m_joined.append(m_pieces[size_t(entry.piece)]);
    m_data = m_joined;
    return true;
}

// Searches the directory for the actual length and start of each piece, in order; the tag precedes them. The bytes
// between two matches belong to the pieces between them.
bool IsoFields::tagsByPlaces() {
    m_tags.clear();
    qsizetype at = 0;      // in the directory
    qsizetype waiting = 0; // previous pieces without a tag
    qsizetype start = 0;
    for (size_t i = 0; i < m_pieces.size(); ++i) {
        const QByteArray place = padded(m_pieces[i].size(), fieldLengthWidth) + padded(start, fieldStartWidth);
        start += m_pieces[i].size();
        const qsizetype found = m_directory.indexOf(place, at + tagLength);
        if (found < 0) {
            ++waiting;
            continue;
        }
        const qsizetype tagAt = found - tagLength;
        if (!takeStretch(m_directory.sliced(at, tagAt - at), qsizetype(i) - waiting, waiting) ||
            !isTag(m_directory.sliced(tagAt, tagLength)))
            return false;
        m_tags.append(m_directory.sliced(tagAt, tagLength));
        at = found + place.size();
        waiting = 0;
    }
    m_data = m_body;
    return takeStretch(m_directory.sliced(at), qsizetype(m_pieces.size()) - waiting, waiting);
}

bool IsoFields::takeStretch(QByteArrayView stretch, qsizetype firstPiece, qsizetype count) {
    if (count == 0)
        return stretch.isEmpty(); // otherwise a tag is damaged or a field is missing
    const bool whole = stretch.size() == count * directoryEntryLength;
    if (!whole) {
        // One entry with a byte too many or too few: its tag is intact unless the tag itself is damaged.
        const QByteArray length = padded(m_pieces[size_t(firstPiece)].size(), fieldLengthWidth);
        const bool nearly = count == 1 && std::abs(stretch.size() - directoryEntryLength) == 1;
        if (!nearly || (stretch.size() < directoryEntryLength && stretch.sliced(tagLength - 1).startsWith(length)))
            return false;
    }
    for (qsizetype i = 0; i < count; ++i) {
        const QByteArrayView tag = stretch.sliced(i * directoryEntryLength, tagLength);
        if (!isTag(tag))
            return false;
        m_tags.append(tag);
    }
    return true;
}

} // namespace marc
