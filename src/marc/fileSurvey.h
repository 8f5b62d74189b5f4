// What a record file is, looked at in slices, so that whoever asks stays alive and can stop at any moment by letting
// the object go. Memory: a block and the record at hand as far as a record goes, whatever the lines are like.
#pragma once

#include "marc/encodingGuess.h"
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
    qint64 terminators = 0;        // of records with something in them, in the file's own encoding
    bool endsInRecord = false;     // something stands after the last terminator, which no reader takes for a record
    qint64 readable = 0;           // records that the program will read: one physical line gives one at the most
    qint64 damagedDirectories = 0; // among those
    qint64 misfits = 0;            // among those: the directory is whole and does not fit the fields
};

// Counts what a RecordCutter reads, and what viewDirectory() and directoryFits() say of it, as the bytes pass by.
class ReadableCount {
public:
    void take(QByteArrayView bytes);

    qint64 records = 0;
    qint64 damagedDirectories = 0;
    qint64 misfits = 0;

private:
    const char *takeLine(const char *at, const char *end);
    void gather(QByteArrayView piece);
    void finish(QByteArrayView record);

    QByteArray m_gathered;       // of the record at hand, line breaks left out
    QList<qsizetype> m_lineEnds; // as decodeLines() has them
    bool m_tooLong = false;      // no more of it is held
    bool m_behindTerminator = false;
    bool m_passLineFeed = false;
};

// Counts record terminators with something before them.
class TerminatorCount {
public:
    void take(QByteArrayView bytes);
    void takeUnit(char16_t unit);

    qint64 terminators = 0;
    bool endsInRecord = false;
};

class FileSurvey {
public:
    static constexpr qsizetype stepSize = 4 << 20; // bytes

    // Fails for what is missing, unreadable or no plain file.
    static platform::Result<FileSurvey> open(const QString &path);

    // Looks at the next bytes; false when the file has been seen whole. Fails where the machine stops giving bytes or
    // the file has become another one meanwhile.
    platform::Result<bool> step();

    FileFacts facts() const; // of what was seen
    qint64 position() const { return m_reader.position(); }
    qint64 size() const { return m_reader.size(); }

private:
    explicit FileSurvey(platform::ByteReader reader);
    void take(QByteArrayView bytes);
    void takeNarrow(QByteArrayView bytes);
    void takeWide(QByteArrayView bytes);
    void takeUnit(char16_t unit);

    platform::ByteReader m_reader;
    QByteArray m_block;
    EncodingGuess m_encoding;
    ReadableCount m_readable;
    TerminatorCount m_terminators;
    qint64 m_carriageReturns = 0;
    qint64 m_lineFeeds = 0;
    qint64 m_pairs = 0; // a carriage return with its line feed
    bool m_behindCarriageReturn = false;
    std::optional<uchar> m_half; // of a character in two bytes
};

QString encodingName(FileEncoding encoding);

// The facts in the words of a window.
struct FactLine {
    QString text;
    bool isWarning = false;
};
struct FactLines {
    QList<FactLine> lines;
    bool disagree = false; // the program will read less, or other, than the file holds: it wants tidying
};
FactLines describe(const FileFacts &facts);

} // namespace marc
