// What a record file is, looked at in slices, so that whoever asks stays alive and can stop at any moment by letting
// the object go. Memory: a block and the beginning of the record at hand, whatever the lines are like.
#pragma once

#include "marc/encodingGuess.h"
#include "platform/byteFile.h"
#include <QStringList>
#include <memory>

namespace marc {

enum class LineEnds { None, CrLf, Lf, Cr, Mixed };

struct FileFacts {
    qint64 size = 0;
    FileEncoding encoding = FileEncoding::Unknown;
    LineEnds lineEnds = LineEnds::None;
    qint64 terminators = 0;        // record terminators, in the file's own encoding
    qint64 readable = 0;           // records that the program will read: one physical line gives one at the most
    qint64 damagedDirectories = 0; // among those
};

// Counts what a RecordCutter reads, and what viewDirectory() says of it, as the bytes pass by.
class ReadableCount {
public:
    void take(QByteArrayView bytes);

    qint64 records = 0;
    qint64 damagedDirectories = 0;

private:
    enum class Place { Head, Fields, BehindTerminator };
    const char *takeHead(const char *at, const char *end);
    void measureHead(bool lineGoesOn);
    void finish();

    Place m_place = Place::Head;
    QByteArray m_head;      // bytes ahead of the first field terminator that are not measured yet
    qint64 m_measured = 0;  // characters ahead of them
    bool m_damaged = false; // the directory of the record at hand
    bool m_passLineFeed = false;
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
    qint64 m_terminators = 0;
    qint64 m_carriageReturns = 0;
    qint64 m_lineFeeds = 0;
    qint64 m_pairs = 0; // a carriage return with its line feed
    bool m_behindCarriageReturn = false;
    std::optional<uchar> m_half; // of a character in two bytes
};

QString encodingName(FileEncoding encoding);

// The facts in the words of a window.
struct FactLines {
    QStringList lines;
    bool disagree = false; // the program will read less, or other, than the file holds: it wants tidying
};
FactLines describe(const FileFacts &facts);

} // namespace marc
