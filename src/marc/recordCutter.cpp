#include "marc/recordCutter.h"
#include "marc/encodingGuess.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"
#include "platform/textFile.h"
#include <cstring>
#include <utility>

namespace marc {

namespace {

constexpr QByteArrayView lineBreak("\r\n");

const char *find(const char *from, const char *end, char wanted) {
    const auto *found = static_cast<const char *>(std::memchr(from, wanted, size_t(end - from)));
    return found ? found : end;
}

} // namespace

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

qsizetype RecordJoiner::take(QByteArrayView bytes) {
    if (std::exchange(m_hasRecord, false)) {
        m_bytes = {};
        m_held.truncate(0);
        m_lineEnds.clear();
        m_isWholeLine = m_tooLong = false;
    }
    const char *at = bytes.begin();
    while (at < bytes.end() && !m_hasRecord) {
        at += skipLine(QByteArrayView(at, bytes.end()));
        if (at < bytes.end())
            at = takePiece(at, bytes.end());
    }
    return at - bytes.begin();
}

qsizetype RecordJoiner::skipLine(QByteArrayView bytes) {
    const char *at = bytes.begin();
    if (m_afterTerminator) {
        at = find(at, bytes.end(), '\r');
        if (at == bytes.end())
            return bytes.size();
        ++at;
        m_afterTerminator = false;
        m_passLineFeed = true;
    }
    if (at < bytes.end() && std::exchange(m_passLineFeed, false) && *at == '\n')
        ++at;
    return at - bytes.begin();
}

// Takes bytes up to and including the end of the line or the record. Returns the position after them.
const char *RecordJoiner::takePiece(const char *at, const char *end) {
    const char *const terminator = find(at, end, char(recordTerminator));
    const char *const lineEnd = find(at, terminator, '\r');
    if (lineEnd != terminator) {
        m_passLineFeed = true;
        hold(QByteArrayView(at, lineEnd));
        if (!m_held.isEmpty() && uchar(m_held.back()) > 0x80)
            m_lineEnds.append(m_held.size());
        return lineEnd + 1;
    }
    if (terminator == end) {
        hold(QByteArrayView(at, end));
        return end;
    }
    const QByteArrayView piece(at, terminator + 1);
    const bool isWhole = m_held.isEmpty() && !m_tooLong; // as nearly all records are
    if (!isWhole)
        hold(piece);
    m_bytes = isWhole ? piece : m_held;
    m_hasRecord = true;
    at = piece.end();
    m_afterTerminator = end - at < lineBreak.size() || QByteArrayView(at, lineBreak.size()) != lineBreak;
    m_isWholeLine = isWhole && !m_afterTerminator;
    return m_afterTerminator ? at : at + lineBreak.size();
}

void RecordJoiner::hold(QByteArrayView piece) {
    m_tooLong = m_tooLong || m_held.size() + piece.size() > m_mostHeld;
    if (m_tooLong)
        m_held.clear();
    else
        m_held.append(piece);
}

RecordCutter::RecordCutter(platform::FileBlocks blocks)
    : m_blocks(std::move(blocks)) {}

platform::Result<RecordCutter> RecordCutter::open(const QString &path) {
    auto blocks = platform::FileBlocks::open(path);
    if (!blocks)
        return blocks.failure();
    return RecordCutter(std::move(blocks).value());
}

bool RecordCutter::hasBytes() {
    if (m_rest.isEmpty() && m_blocks.next())
        m_rest = m_blocks.bytes();
    return !m_rest.isEmpty();
}

bool RecordCutter::next() {
    while (hasBytes()) {
        m_rest = m_rest.sliced(m_joiner.take(m_rest));
        if (m_joiner.hasRecord())
            return true;
        if (m_joiner.held() > longestUnchecked && !m_blocks.restHas(char(recordTerminator)))
            break;
    }
    m_joiner = RecordJoiner();
    return false;
}

bool RecordCutter::atEnd() {
    while (m_joiner.isWithinLine() && hasBytes())
        m_rest = m_rest.sliced(m_joiner.skipLine(m_rest));
    return !hasBytes();
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
