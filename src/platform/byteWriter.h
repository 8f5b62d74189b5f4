// A file of lines being written, bytes as they come, gathered to blocks. A failed write is told by writeLine(), flush()
// or close() and by each of them from then on, never lost; what is still gathered when the object goes is written
// without a word.
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
    static Result<ByteWriter> create(const QString &path); // replaces what is there; fails for what is no plain file
    ByteWriter(ByteWriter &&) noexcept;
    ByteWriter &operator=(ByteWriter &&) noexcept;
    ~ByteWriter();

    Status writeLine(QByteArrayView line); // and CR LF behind it
    // The same of a line that has CR LF behind it already, and stays as it is until the next flush(): lines that stand
    // one behind the other are handed over together, without a copy.
    Status writeStanding(QByteArrayView line);
    Status flush(); // hands over to the machine what is gathered or stands
    Status close();

    // How many of the lines stand whole in the file.
    qint64 linesHandedOver() const { return m_linesHandedOver; }

private:
    explicit ByteWriter(std::unique_ptr<QFile> file);
    std::unique_ptr<QFile> m_file;
    QByteArrayView m_standing; // lines that wait where they stand; nothing is gathered then
    QByteArray m_room;         // for what is gathered: an array that grew with each line would cost as much as the copy
    qsizetype m_gathered = 0;  // bytes of it
    QList<qsizetype> m_lineEnds; // in what is gathered
    qint64 m_linesHandedOver = 0;
    std::optional<Failure> m_fault; // what the machine refused once is not offered again
};

} // namespace platform
