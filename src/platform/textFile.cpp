#include "platform/textFile.h"
#include "platform/byteFile.h"
#include "platform/codepage936.h"
#include "platform/plainFile.h"
#include <QFile>
#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr qsizetype beginningSize = 1 << 16;

} // namespace

LineReader::LineReader(FileBlocks blocks)
    : m_blocks(std::move(blocks)) {}

Result<LineReader> LineReader::open(const QString &path) {
    auto blocks = FileBlocks::open(path);
    if (!blocks)
        return blocks.failure();
    return LineReader(std::move(blocks).value());
}

bool LineReader::atEnd() {
    for (;;) {
        if (m_rest.isEmpty() && !m_blocks.next())
            return true;
        if (m_rest.isEmpty())
            m_rest = m_blocks.bytes();
        if (!std::exchange(m_passLineFeed, false) || m_rest.front() != '\n')
            return false;
        m_rest = m_rest.sliced(1);
    }
}

QByteArrayView LineReader::readLine() {
    m_joined.clear();
    while (!atEnd()) {
        const qsizetype end = m_rest.indexOf('\r');
        const QByteArrayView piece = m_rest.first(end < 0 ? m_rest.size() : end);
        m_rest = m_rest.sliced(end < 0 ? m_rest.size() : end + 1);
        m_passLineFeed = end >= 0;
        if (m_passLineFeed && m_joined.isEmpty())
            return piece;
        m_joined.append(piece);
        if (m_passLineFeed)
            break;
    }
    return m_joined;
}

void LineReader::rewind() {
    m_blocks.rewind();
    m_rest = {};
    m_passLineFeed = false;
}

Result<LineCount> countLines(const QString &path, char mark) {
    auto file = openPlainFile(path, QIODevice::ReadOnly);
    if (!file)
        return file.failure();
    QByteArray block(blockSize, Qt::Uninitialized);
    LineCount counted;
    char last = '\n';       // the last byte read
    char beforeLast = '\r'; // the byte before it; the initial values make an empty file end like a finished line
    qint64 size = 0;
    while ((size = file.value()->read(block.data(), block.size())) > 0) {
        const QByteArrayView read(block.constData(), size);
        counted.lines += countByte(read, '\r');
        if (mark)
            counted.marks += countByte(read, mark);
        if (counted.beginning.isEmpty())
            counted.beginning = read.first(std::min(read.size(), beginningSize)).toByteArray();
        beforeLast = size > 1 ? block[size - 2] : last;
        last = block[size - 1];
    }
    if (size < 0)
        return Failure{file.value()->errorString(), int(file.value()->error())};
    const bool finished = last == '\r' || (last == '\n' && beforeLast == '\r');
    counted.lines += finished ? 0 : 1;
    return counted;
}

Result<QStringList> readTextLines(const QString &path) {
    auto reader = LineReader::open(path);
    if (!reader)
        return reader.failure();
    QStringList lines;
    while (!reader.value().atEnd())
        lines.append(decode(reader.value().readLine()));
    if (const std::optional<Failure> fault = reader.value().fault())
        return *fault;
    return lines;
}

Status writeTextFile(const QString &path, const QString &text) {
    return writeWholeFile(path, encode(text), Saving::InPlace);
}

} // namespace platform
