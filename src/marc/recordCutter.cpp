#include "marc/recordCutter.h"
#include "marc/encodingGuess.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"

namespace marc {

RawRecord decodeLines(QByteArrayView bytes, const QList<qsizetype> &lineEnds) {
    if (lineEnds.isEmpty())
        return platform::decode(bytes);
    RawRecord text;
    qsizetype from = 0;
    for (const qsizetype end : lineEnds) {
        text += platform::decode(bytes.sliced(from, end - from));
        from = end;
    }
    return text + platform::decode(bytes.sliced(from));
}

RecordCutter::RecordCutter(platform::LineReader &reader)
    : m_reader(reader) {}

bool RecordCutter::next() {
    m_gathered.truncate(0);
    m_lineEnds.clear();
    m_stands = false;
    while (!m_reader.atEnd()) {
        const qsizetype before = m_gathered.size();
        const QByteArrayView line = m_reader.lineThrough(char(recordTerminator), m_gathered);
        if (before == 0 && line.endsWith(char(recordTerminator))) { // as nearly all records do
            m_bytes = line;
            m_stands = m_reader.stands();
            return true;
        }
        m_gathered.append(line);
        if (m_gathered.size() == before)
            continue;
        // Lines are decoded one by one. That makes a difference only if a line ends with half of a character.
        if (before > 0 && uchar(m_gathered[before - 1]) > 0x80)
            m_lineEnds.append(before);
        if (m_gathered.back() == char(recordTerminator)) {
            m_bytes = m_gathered;
            return true;
        }
        // A piece without a terminator is dropped anyway, and must not fill the memory before that.
        if (m_gathered.size() > platform::LineReader::heldOnTrust && !m_reader.reaches(char(recordTerminator)))
            break;
    }
    m_gathered.clear();
    m_bytes = {};
    return false;
}

RawRecord RecordCutter::record() const {
    return decodeLines(m_bytes, m_lineEnds);
}

void cutRecord(platform::LineReader &reader, const std::function<bool(const RawRecord &)> &consumer) {
    RecordCutter cutter(reader);
    while (cutter.next() && consumer(cutter.record())) {
    }
}

namespace {

bool looksLikeUtf8(QByteArrayView beginning) {
    EncodingGuess guess;
    guess.take(beginning);
    return guess.guess() == FileEncoding::Utf8 || guess.guess() == FileEncoding::Utf8WithBom;
}

} // namespace

platform::Result<FileCounts> fileCounts(const QString &path) {
    const auto counted = platform::countLines(path, char(recordTerminator));
    if (!counted)
        return counted.failure();
    return FileCounts{counted.value().lines, counted.value().marks, looksLikeUtf8(counted.value().beginning)};
}

platform::Result<qint64> lineCount(const QString &path) {
    const auto counted = platform::countLines(path);
    if (!counted)
        return counted.failure();
    return counted.value().lines;
}

} // namespace marc
