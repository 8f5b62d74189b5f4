// Splits a file into records.
#pragma once

#include "marc/rawRecord.h"
#include "platform/textFile.h"
#include <QByteArray>
#include <QList>
#include <functional>

namespace marc {

// Returns the text of a record of several lines, each decoded separately. `lineEnds` are the offsets in `bytes` where
// lines meet; those after a byte below 0x81 may be omitted.
RawRecord decodeLines(QByteArrayView bytes, const QList<qsizetype> &lineEnds);

// Splits a file into records: one physical line gives at most one record, a record that spans several lines is joined
// without the line breaks, text after the first terminator of a line is ignored, and a last piece without a terminator
// is dropped. Holds only the current record.
class RecordCutter {
public:
    explicit RecordCutter(platform::LineReader &reader);

    // Advances to the next record; returns false at the end of the file.
    bool next();
    // Returns the record's bytes as in the file, including the terminator, without line breaks. Valid until the next
    // call of next() or of the reader.
    QByteArrayView bytes() const { return m_bytes; }
    // Returns whether the bytes are a complete line in the reader's block, with CR LF after it; see
    // LineReader::stands().
    bool stands() const { return m_stands; }
    // Returns the record's text; each line is decoded separately.
    RawRecord record() const;

private:
    platform::LineReader &m_reader;
    QByteArrayView m_bytes; // in the reader's block, or in m_gathered
    bool m_stands = false;
    QByteArray m_gathered;
    QList<qsizetype> m_lineEnds; // where lines were joined after a byte that could start a character
};

// Passes each record to the consumer until it returns false.
void cutRecord(platform::LineReader &reader, const std::function<bool(const RawRecord &)> &consumer);

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
