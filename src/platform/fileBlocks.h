// Reads a file in blocks that consist of whole lines, as long as its lines end with CR LF and are shorter than a block.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <memory>
#include <optional>

class QFile;

namespace platform {

class FileBlocks {
public:
    // Fails if the file is missing, unreadable or not a plain file; never blocks on a pipe or a device.
    static Result<FileBlocks> open(const QString &path);
    FileBlocks(FileBlocks &&) noexcept;
    FileBlocks &operator=(FileBlocks &&) noexcept;
    ~FileBlocks();

    // Reads the next block, which begins after the current one. Returns false at the end of the file; the current block
    // is then empty. If the file has grown in the meantime, a later call reads on.
    bool next();
    // The current block: up to its last CR LF, or all bytes that were read if there is none.
    QByteArrayView bytes() const { return QByteArrayView(m_memory).first(m_size); }
    // The memory of bytes(), which stays unchanged as long as a copy of this array exists.
    const QByteArray &memory() const { return m_memory; }

    // Returns whether the byte occurs in the file after the current block; if not, the file is at its end afterwards.
    bool restHas(char wanted);

    // Returns the read error that occurred before the end of the file, if any; the file is then at its end.
    const std::optional<Failure> &fault() const { return m_fault; }
    void rewind(); // the next block is the first one again

private:
    explicit FileBlocks(std::unique_ptr<QFile> file);
    void makeSpace();

    std::unique_ptr<QFile> m_file;
    QByteArray m_memory;
    QByteArray m_spare;   // the memory of an earlier block; used again when its copies are gone
    qsizetype m_size = 0; // of the current block
    qsizetype m_read = 0; // bytes in the memory; those after the current block begin the next one
    // The byte that restHas() found, and its offset in the file; nothing is known about the bytes after it.
    char m_sought = 0;
    qint64 m_soughtAt = -1;
    std::optional<Failure> m_fault;
};

} // namespace platform
