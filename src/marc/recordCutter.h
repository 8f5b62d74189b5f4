// How a file becomes a series of records.
#pragma once

#include "marc/rawRecord.h"
#include "platform/textFile.h"
#include <QByteArray>
#include <QList>
#include <functional>

namespace marc {

// The text of a record of several lines, each decoded for itself. `lineEnds` are the places in the bytes where lines
// meet; those after a byte below 0x81 may be left out.
RawRecord decodeLines(QByteArrayView bytes, const QList<qsizetype> &lineEnds);

// Cuts a file into records: one physical line gives one record at the most, a record wrapped over several lines is put
// together without the breaks, what stands behind the first terminator of a line is not used, and a last piece without
// a terminator is dropped. Memory: the record in hand.
class RecordCutter {
public:
    explicit RecordCutter(platform::LineReader &reader);

    // Moves on to the next record; false at the end of the file.
    bool next();
    // The record's bytes as they stood in the file, terminator included, line breaks left out.
    // Valid until the next call of next() or of the reader.
    QByteArrayView bytes() const { return m_bytes; }
    // Whether those bytes are a line of the reader's that stands(), CR LF behind it.
    bool stands() const { return m_stands; }
    // The record's text; each line decoded for itself.
    RawRecord record() const;

private:
    platform::LineReader &m_reader;
    QByteArrayView m_bytes; // in the reader's block, or gathered
    bool m_stands = false;
    QByteArray m_gathered;
    QList<qsizetype> m_lineEnds; // where joined lines meet behind a byte that could start a character
};

// The consumer says whether to go on.
void cutRecord(platform::LineReader &reader, const std::function<bool(const RawRecord &)> &consumer);

// What one look at a file tells of it before a record is read.
struct FileCounts {
    qint64 lines = 0;           // empty ones included: the estimate of its records
    qint64 terminators = 0;     // of records
    bool looksLikeUtf8 = false; // by its beginning
};
platform::Result<FileCounts> fileCounts(const QString &path);

// The estimate of a file's records alone.
platform::Result<qint64> lineCount(const QString &path);

} // namespace marc
