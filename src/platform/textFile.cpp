#include "platform/textFile.h"
#include "platform/byteFile.h"
#include "platform/codepage936.h"
#include "platform/plainFile.h"
#include <QFile>
#include <QSaveFile>
#include <algorithm>
#include <cstring>
#include <utility>

namespace platform {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr qsizetype lineBlockSize = 1 << 19; // lines that are not copied are written in pieces of this size
constexpr qsizetype beginningSize = 1 << 16;

const char *find(char wanted, const char *from, qsizetype size) {
    return static_cast<const char *>(std::memchr(from, wanted, size_t(size)));
}

} // namespace

struct LineReader::State {
    std::unique_ptr<QFile> file;
    QByteArray block = QByteArray(lineBlockSize, Qt::Uninitialized);
    qsizetype at = 0;   // offset of the next unread byte in the block
    qsizetype size = 0; // bytes in the block
    QByteArray joined;  // a line that crosses the end of a block
    // The byte found by reaches(), and its offset in the file; nothing is known about the bytes after it.
    char sought = 0;
    qint64 soughtAt = -1;
    std::optional<Failure> fault;
    bool stands = false; // of the line returned last
    std::function<void()> beforeReading;

    // Moves the unread bytes to the start of the block and reads more after them, so that nearly every line is complete
    // in the block. Returns whether anything was read.
    bool readBehind() {
        if (beforeReading)
            beforeReading();
        size -= at;
        std::memmove(block.data(), here(), size_t(size));
        at = 0;
        const qint64 count = file->read(block.data() + size, block.size() - size);
        if (count < 0)
            fault = Failure{file->errorString(), int(file->error())};
        size += std::max<qint64>(0, count);
        return count > 0;
    }
    bool hasMore() { return at < size || readBehind(); }
    const char *here() const { return block.constData() + at; }

    bool reaches(char wanted) {
        if (file->isSequential() || QByteArrayView(block).sliced(at, size - at).contains(wanted))
            return true;
        const qint64 back = file->pos(); // offset of the byte after the block
        if (sought == wanted && soughtAt >= back)
            return true;
        QByteArray piece(blockSize, Qt::Uninitialized);
        for (qint64 from = back, count = 0; (count = file->read(piece.data(), piece.size())) > 0; from += count) {
            const qsizetype found = QByteArrayView(piece.constData(), count).indexOf(wanted);
            if (found < 0)
                continue;
            sought = wanted;
            soughtAt = from + found;
            return file->seek(back);
        }
        at = size = 0;
        return false;
    }

    // Skips the line feed that belongs to a carriage return just read.
    void passLineFeed() {
        if (hasMore() && *here() == '\n')
            ++at;
    }

    // Returns the carriage return that ends the next line; nullptr unless it and the byte after it are in the block.
    const char *lineEnd() const { return size - at > 1 ? find('\r', here(), size - at - 1) : nullptr; }

    // Returns the next line, only up to and including the first `stop` byte if one is given. A line that is complete in
    // the block is returned as a view of it; any other line is appended to `gathered`, and an empty view returned.
    QByteArrayView line(std::optional<char> stop, QByteArray &gathered) {
        const char *end = lineEnd();
        if (!end && size - at < block.size() && readBehind())
            end = lineEnd();
        stands = false;
        if (!end) {
            gatherLine(stop, gathered);
            return {};
        }
        const char *const from = here();
        const char *const stopped = stop ? find(*stop, from, end - from) : nullptr;
        const QByteArrayView line(from, stopped ? stopped + 1 : end);
        at += end - from + (end[1] == '\n' ? 2 : 1);
        stands = end[1] == '\n' && line.end() == end;
        return line;
    }

    // The same for a line that is longer than the block or is the last of the file.
    void gatherLine(std::optional<char> stop, QByteArray &gathered) {
        const qsizetype before = gathered.size();
        bool stopped = false;
        while (hasMore()) {
            const char *from = here();
            const qsizetype left = size - at;
            const char *const end = find('\r', from, left);
            const qsizetype length = end ? end - from : left;
            qsizetype kept = stopped ? 0 : length;
            if (const char *const found = stop && !stopped ? find(*stop, from, length) : nullptr) {
                kept = found - from + 1;
                stopped = true;
            }
            at += length + (end ? 1 : 0);
            gathered.append(from, kept);
            if (end) {
                passLineFeed();
                break;
            }
            if (stop && !stopped && gathered.size() - before > heldOnTrust && !reaches(*stop))
                break;
        }
    }
};

LineReader::LineReader(std::unique_ptr<State> state)
    : m_state(std::move(state)) {}
LineReader::LineReader(LineReader &&) noexcept = default;
LineReader &LineReader::operator=(LineReader &&) noexcept = default;
LineReader::~LineReader() = default;

Result<LineReader> LineReader::open(const QString &path) {
    auto file = openPlainFile(path, QIODevice::ReadOnly);
    if (!file)
        return file.failure();
    auto state = std::make_unique<State>();
    state->file = std::move(file).value();
    return LineReader(std::move(state));
}

bool LineReader::atEnd() const {
    return !m_state->hasMore();
}

QByteArrayView LineReader::readLine() {
    QByteArray &joined = m_state->joined;
    joined.clear();
    const QByteArrayView whole = m_state->line(std::nullopt, joined);
    return whole.isEmpty() ? QByteArrayView(joined) : whole;
}

QByteArrayView LineReader::lineThrough(char stop, QByteArray &gathered) {
    return m_state->line(stop, gathered);
}

bool LineReader::stands() const {
    return m_state->stands;
}

void LineReader::beforeReading(std::function<void()> told) {
    m_state->beforeReading = std::move(told);
}

bool LineReader::reaches(char wanted) {
    return m_state->reaches(wanted);
}

std::optional<Failure> LineReader::fault() const {
    return m_state->fault;
}

void LineReader::rewind() {
    m_state->fault.reset();
    m_state->file->seek(0);
    m_state->at = m_state->size = 0;
    m_state->soughtAt = -1;
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
    if (const Status plain = mayBecomeFile(path); !plain)
        return plain;
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    // Unbuffered, since commit() does not report that the rest of a buffer did not fit on the disk.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && notTaken(file, encode(text)).isEmpty() &&
        file.commit())
        return success();
    return Failure{file.errorString(), int(file.error())};
}

} // namespace platform
