#include "platform/fileBlocks.h"
#include "platform/plainFile.h"
#include <QFile>
#include <algorithm>
#include <cstring>
#include <utility>

namespace platform {

namespace {

constexpr qsizetype blockSize = 1 << 19;
constexpr qsizetype searchSize = 1 << 18;

// Returns the offset after the last CR LF; the size if there is none.
qsizetype wholeLines(QByteArrayView bytes) {
    for (qsizetype at = bytes.lastIndexOf('\n'); at > 0; at = bytes.first(at).lastIndexOf('\n')) {
        if (bytes[at - 1] == '\r')
            return at + 1;
    }
    return bytes.size();
}

} // namespace

FileBlocks::FileBlocks(std::unique_ptr<QFile> file)
    : m_file(std::move(file)) {}
FileBlocks::FileBlocks(FileBlocks &&) noexcept = default;
FileBlocks &FileBlocks::operator=(FileBlocks &&) noexcept = default;
FileBlocks::~FileBlocks() = default;

Result<FileBlocks> FileBlocks::open(const QString &path) {
    auto file = openPlainFile(path, QIODevice::ReadOnly);
    if (!file)
        return file.failure();
    return FileBlocks(std::move(file).value());
}

// Moves the bytes after the current block to the start of memory that nobody else uses. next() sets the block.
void FileBlocks::makeSpace() {
    const qsizetype left = m_read - m_size;
    if (!m_memory.isDetached()) { // nor is one without memory
        if (!m_spare.isDetached())
            m_spare = QByteArray(blockSize, Qt::Uninitialized);
        std::memcpy(m_spare.data(), m_memory.constData() + m_size, size_t(left));
        m_memory.swap(m_spare);
    } else {
        std::memmove(m_memory.data(), m_memory.constData() + m_size, size_t(left));
    }
    m_read = left;
}

bool FileBlocks::next() {
    makeSpace();
    const qint64 count = m_file->read(m_memory.data() + m_read, m_memory.size() - m_read);
    if (count < 0)
        m_fault = Failure{m_file->errorString(), int(m_file->error())};
    m_read += std::max<qint64>(0, count);
    m_size = wholeLines(QByteArrayView(m_memory).first(m_read)); // at the end of the file the rest has no line end
    return m_size > 0;
}

bool FileBlocks::restHas(char wanted) {
    if (QByteArrayView(m_memory).first(m_read).sliced(m_size).contains(wanted))
        return true;
    const qint64 back = m_file->pos(); // offset of the first byte that is not in memory
    if (m_sought == wanted && m_soughtAt >= back)
        return true;
    QByteArray piece(searchSize, Qt::Uninitialized);
    for (qint64 from = back, count = 0; (count = m_file->read(piece.data(), piece.size())) > 0; from += count) {
        const qsizetype found = QByteArrayView(piece.constData(), count).indexOf(wanted);
        if (found < 0)
            continue;
        m_sought = wanted;
        m_soughtAt = from + found;
        return m_file->seek(back);
    }
    m_size = m_read = 0;
    return false;
}

void FileBlocks::rewind() {
    m_fault.reset();
    m_file->seek(0);
    m_size = m_read = 0;
}

} // namespace platform
