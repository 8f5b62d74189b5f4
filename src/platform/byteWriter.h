// Writes a file line by line, without decoding, in blocks. Once a write has failed, writeLine(), flush() and close()
// return that failure, then and in all later calls. The destructor writes what is still buffered and reports no errors.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <memory>
#include <optional>

class QFile;

namespace platform {

class ByteWriter {
public:
    // Replaces an existing file. Fails if the path is not a plain file.
    static Result<ByteWriter> create(const QString &path);
    ByteWriter(ByteWriter &&) noexcept;
    ByteWriter &operator=(ByteWriter &&) = delete; // a new file is a new writer
    ~ByteWriter();

    Status writeLine(QByteArrayView line); // appends CR LF
    // The same for a line in `memory` that already has CR LF after it. Keeps a copy of the array until the line is
    // written; adjacent lines are written together, without copying their bytes.
    Status writeLine(const QByteArray &memory, QByteArrayView line);
    Status flush(); // writes what is waiting to the file
    Status close();

    // Returns the number of lines that are completely written to the file.
    qint64 linesHandedOver() const { return m_linesHandedOver; }

private:
    explicit ByteWriter(std::unique_ptr<QFile> file);
    std::unique_ptr<QFile> m_file;
    QByteArray m_memory;         // that of m_lines
    QByteArrayView m_lines;      // lines to write that are not copied; nothing is buffered then
    QByteArray m_buffer;         // growing an array with each line would cost as much as the copy
    qsizetype m_gathered = 0;    // bytes in the buffer
    QList<qsizetype> m_lineEnds; // offsets in the bytes to write
    qint64 m_linesHandedOver = 0;
    std::optional<Failure> m_fault; // after a failed write no other is tried
};

} // namespace platform
