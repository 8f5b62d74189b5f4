// Files as bytes: one that is read and must stay as it is meanwhile, and one that appears only when it is whole.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <memory>

class QFile;
class QSaveFile;

namespace platform {

// How many of the bytes are `wanted`.
qint64 countByte(QByteArrayView bytes, char wanted);

// Reads a plain file from its start to its end.
class ByteReader {
public:
    static Result<ByteReader> open(const QString &path);
    ByteReader(ByteReader &&) noexcept;
    ByteReader &operator=(ByteReader &&) noexcept;
    ~ByteReader();

    // Puts the next bytes into `into`, `most` at the most; none at the end. Fails where the machine stops giving bytes,
    // and where the file has grown, has shrunk, was written to or went since it was opened.
    Result<qsizetype> read(char *into, qsizetype most);

    qint64 size() const { return m_size; } // when it was opened
    qint64 position() const { return m_position; }

private:
    ByteReader(const QString &path, std::unique_ptr<QFile> file);
    Status unchanged() const;

    QString m_path;
    std::unique_ptr<QFile> m_file;
    qint64 m_size = 0;
    QDateTime m_written;
    qint64 m_position = 0;
};

// A file that is written beside its place and takes its name in commit(): whatever goes wrong before, what stood there
// stays, and nothing is left of the new one when the object goes.
class SavedFile {
public:
    static Result<SavedFile> create(const QString &path);
    SavedFile(SavedFile &&) noexcept;
    SavedFile &operator=(SavedFile &&) noexcept;
    ~SavedFile();

    Status write(QByteArrayView bytes); // gathered to blocks; a failure is told by this or by commit()
    Status commit();

private:
    explicit SavedFile(std::unique_ptr<QSaveFile> file);
    Status handOver();

    std::unique_ptr<QSaveFile> m_file;
    QByteArray m_gathered;
};

} // namespace platform
