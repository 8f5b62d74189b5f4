// Files as bytes: a reader that detects changes made to its file meanwhile, and a file that appears only when it is
// complete.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <memory>

class QFile;
class QSaveFile;

namespace platform {

// Returns the number of bytes that are equal to `wanted`.
qint64 countByte(QByteArrayView bytes, char wanted);

// Reads a plain file from start to end.
class ByteReader {
public:
    // Fails if the file is missing, unreadable or not a plain file.
    static Result<ByteReader> open(const QString &path);
    ByteReader(ByteReader &&) noexcept;
    ByteReader &operator=(ByteReader &&) noexcept;
    ~ByteReader();

    // Reads the next bytes into `into`, at most `most`. Returns their number, 0 at the end of the file. Fails on a read
    // error, and if the file was resized, written to or deleted since it was opened.
    Result<qsizetype> read(char *into, qsizetype most);

    qint64 size() const { return m_size; } // in bytes, when the file was opened
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

enum class Saving {
    Usual,     // the new file gets the permissions of the one that it replaces
    OwnerOnly, // the new file is closed to other accounts
    InPlace,   // as Usual, but if the folder allows no new file, the existing one is overwritten in place
};

// A file that is written next to its destination and gets its name in commit(). If an error occurs before that, an
// existing file at the destination stays unchanged; the destructor removes what was not committed. Fails if something
// other than a plain file exists at the path.
class SavedFile {
public:
    static Result<SavedFile> create(const QString &path, Saving saving = Saving::Usual);
    SavedFile(SavedFile &&) noexcept;
    SavedFile &operator=(SavedFile &&) noexcept;
    ~SavedFile();

    Status write(QByteArrayView bytes); // buffered: this call or commit() returns the failure
    Status commit();

private:
    explicit SavedFile(std::unique_ptr<QSaveFile> file);
    Status handOver();

    std::unique_ptr<QSaveFile> m_file;
    QByteArray m_gathered;
};

// Replaces the file by the bytes, as a SavedFile.
Status writeWholeFile(const QString &path, QByteArrayView bytes, Saving saving = Saving::Usual);

} // namespace platform
