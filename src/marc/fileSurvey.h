// Examines a record file in steps, so that the caller stays responsive and can stop at any time by destroying the
// object. Holds one block and the current record up to a limit, for lines of any length.
#pragma once

#include "marc/encodingGuess.h"
#include "marc/recordCutter.h"
#include "platform/byteFile.h"
#include <QList>
#include <QString>
#include <memory>

namespace marc {

enum class LineEnds { None, CrLf, Lf, Cr, Mixed };

struct FileFacts {
    qint64 size = 0;
    FileEncoding encoding = FileEncoding::Unknown;
    bool doubtful = false; // too few characters beyond ASCII to be sure of the encoding
    LineEnds lineEnds = LineEnds::None;
    qint64 terminators = 0;        // record terminators with text before them, in the file's own encoding
    bool endsInRecord = false;     // text follows the last terminator; no reader takes it for a record
    qint64 readable = 0;           // records that the program will read: at most one per physical line
    qint64 damagedDirectories = 0; // of the readable records
    qint64 misfits = 0;            // of the readable records: the directory is undamaged and does not match the fields
};

// Counts the records that a RecordCutter reads, and the results of viewDirectory() and directoryFits() for them. The
// bytes are passed once in order.
class ReadableCount {
public:
    ReadableCount();
    void take(QByteArrayView bytes);

    qint64 records = 0;
    qint64 damagedDirectories = 0;
    qint64 misfits = 0;

private:
    void takeRecord();

    RecordJoiner m_joiner;
};

// Counts record terminators with text before them.
class TerminatorCount {
public:
    void take(QByteArrayView bytes);
    void takeUnit(char16_t unit);

    qint64 terminators = 0;
    bool endsInRecord = false;
};

class FileSurvey {
public:
    static constexpr qsizetype stepSize = 4 << 20;         // bytes
    enum class Subject { Everything, NotReadableRecords }; // the second leaves out what only the program's reader reads

    // Fails if the file is missing, unreadable or not a plain file.
    static platform::Result<FileSurvey> open(const QString &path, Subject subject = Subject::Everything);

    // Examines the next bytes; returns false after the end of the file. Fails on a read error or if the file has
    // changed meanwhile.
    platform::Result<bool> step();

    FileFacts facts() const; // of the part examined so far
    qint64 position() const { return m_reader.position(); }
    qint64 size() const { return m_reader.size(); }

private:
    FileSurvey(platform::ByteReader reader, Subject subject);
    void take(QByteArrayView bytes);
    void takeNarrow(QByteArrayView bytes);
    void takeWide(QByteArrayView bytes);
    void takeUnit(char16_t unit);

    platform::ByteReader m_reader;
    Subject m_subject;
    QByteArray m_block;
    EncodingGuess m_encoding;
    ReadableCount m_readable;
    TerminatorCount m_terminators;
    qint64 m_carriageReturns = 0;
    qint64 m_lineFeeds = 0;
    qint64 m_pairs = 0; // carriage returns followed by a line feed
    bool m_behindCarriageReturn = false;
    std::optional<uchar> m_half; // the first byte of a two-byte unit
};

QString encodingName(FileEncoding encoding);

// The facts as shown in a window.
struct FactLine {
    QString text;
    bool isWarning = false;
};
struct FactLines {
    QList<FactLine> lines;
    bool disagree = false; // the program will read fewer or other records than the file holds: it should be tidied
};
FactLines describe(const FileFacts &facts);

} // namespace marc
