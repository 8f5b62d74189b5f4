// Splits a file into records.
#pragma once

#include "marc/rawRecord.h"
#include "platform/fileBlocks.h"
#include <QByteArray>
#include <QList>
#include <limits>
#include <optional>

namespace marc {

// Returns the text of a record of several lines, each decoded separately. `lineEnds` are the offsets in `bytes` where
// lines meet; those after a byte below 0x81 may be omitted.
RawRecord decodeLines(QByteArrayView bytes, const QList<qsizetype> &lineEnds);

// Joins the bytes of a file, passed in order in pieces of any size, to records: one physical line gives at most one
// record, a record that spans several lines is joined without the line breaks, text after the first terminator of a
// line is ignored.
class RecordJoiner {
public:
    // At most `mostHeld` bytes are held of a record that is not in one piece.
    explicit RecordJoiner(qsizetype mostHeld = std::numeric_limits<qsizetype>::max())
        : m_mostHeld(mostHeld) {}

    // Takes bytes up to the end of the next record, or all of them. Returns their number.
    qsizetype take(QByteArrayView bytes);
    // Returns whether the bytes taken last end a record.
    bool hasRecord() const { return m_hasRecord; }
    // Takes the bytes that belong to the line of the record that was taken last. Returns their number.
    qsizetype skipLine(QByteArrayView bytes);
    bool isWithinLine() const { return m_afterTerminator || m_passLineFeed; } // more such bytes may follow
    qsizetype held() const { return m_held.size(); }

    // About the record; valid until the next call of take() and as long as the bytes passed last.
    // Its bytes as in the file, including the terminator, without line breaks; empty if it is too long.
    QByteArrayView bytes() const { return m_bytes; }
    bool isTooLong() const { return m_tooLong; }
    // Returns whether the bytes are a complete line, with CR LF after them in the bytes passed last.
    bool isWholeLine() const { return m_isWholeLine; }
    // For decodeLines(): where lines were joined after a byte that could start a character.
    const QList<qsizetype> &lineEnds() const { return m_lineEnds; }

private:
    const char *takePiece(const char *at, const char *end);
    void hold(QByteArrayView piece);

    qsizetype m_mostHeld;
    QByteArrayView m_bytes; // passed last, or m_held
    QByteArray m_held;      // what was passed of the record, without line breaks
    QList<qsizetype> m_lineEnds;
    bool m_hasRecord = false;
    bool m_isWholeLine = false;
    bool m_tooLong = false;
    bool m_afterTerminator = false;
    bool m_passLineFeed = false;
};

// Reads the records of a file. A last piece without a terminator is dropped. Holds one block and the current record.
class RecordCutter {
public:
    // A piece that is longer is read on only if the rest of the file has a terminator, so that a file without one does
    // not fill the memory.
    static constexpr qsizetype longestUnchecked = 8 << 20;

    static platform::Result<RecordCutter> open(const QString &path); // fails like FileBlocks::open()

    // Advances to the next record; returns false at the end of the file and after a read error.
    bool next();
    // Returns the record's bytes, see RecordJoiner. Valid until the next call of next() or atEnd().
    QByteArrayView bytes() const { return m_joiner.bytes(); }
    // Returns the memory that holds the record as a line with CR LF after it, as of nearly all records. A copy of it
    // keeps the bytes valid. A null pointer: the bytes are not such a line.
    const QByteArray *lineMemory() const { return m_joiner.isWholeLine() ? &m_blocks.memory() : nullptr; }
    // Returns the record's text; each line is decoded separately.
    RawRecord record() const { return decodeLines(m_joiner.bytes(), m_joiner.lineEnds()); }

    // Returns whether nothing follows the line of the current record at the moment; the file may still grow.
    bool atEnd();
    const std::optional<platform::Failure> &fault() const { return m_blocks.fault(); }

private:
    explicit RecordCutter(platform::FileBlocks blocks);
    bool hasBytes();

    platform::FileBlocks m_blocks;
    QByteArrayView m_rest; // the bytes of the block that were not taken
    RecordJoiner m_joiner;
};

// The result of one pass over a file, before any record is read.
struct FileCounts {
    qint64 lines = 0;           // including empty ones; an estimate of the number of records
    qint64 terminators = 0;     // of records
    bool looksLikeUtf8 = false; // judged by the beginning of the file
};
platform::Result<FileCounts> fileCounts(const QString &path);

// Returns only the estimate of the number of records.
platform::Result<qint64> lineCount(const QString &path);

} // namespace marc
