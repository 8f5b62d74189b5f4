// Text files on code page 936. Lines end at a carriage return, alone or followed by a line feed; a line feed alone ends
// nothing. Lines are found in the bytes and decoded afterwards, one by one: 0x0D is never half of a character.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

class QFile;

namespace platform {

// Reads a file line by line in blocks; holds no more than a block and the line in hand.
class LineReader {
public:
    // Fails for what is missing, unreadable or no plain file: nobody waits for what a pipe or a device may bring.
    static Result<LineReader> open(const QString &path);
    LineReader(LineReader &&) noexcept;
    LineReader &operator=(LineReader &&) noexcept;
    ~LineReader();

    // Whether nothing is left to read, the line end of the last line taken as read.
    bool atEnd() const;

    // The next line without its line end; empty at the end of the file. Valid until the next call of any function here,
    // atEnd() included.
    QByteArrayView readLine();

    // The next line up to and including the first `stop` byte in it; what stands behind that byte on the line is read
    // and dropped without being held. The whole line where it has no such byte; of a long one, when the rest of the
    // file has none either, only a beginning, and the reader is at its end. A line that lies whole in the block is
    // handed back as it stands there, valid as readLine()'s is; another one is put behind what is gathered, and nothing
    // handed back.
    QByteArrayView lineThrough(char stop, QByteArray &gathered);

    // Whether the line handed back last stands in the block whole, nothing of it dropped, with CR LF behind it.
    bool stands() const;
    // What is called before the block is read over: until then all lines handed back from it stand in it.
    void beforeReading(std::function<void()> told);

    // Whether the byte stands anywhere in what is left of the file; where it does not, the reader is at its end
    // afterwards. For whoever gathers bytes up to that one: beyond `heldOnTrust` of them it pays to ask.
    bool reaches(char wanted);
    static constexpr qsizetype heldOnTrust = 8 << 20;

    // Why the machine stopped giving bytes before the file's end, where it did; the reader counts as at its end then.
    std::optional<Failure> fault() const;

    // Back to the start of the file.
    void rewind();

private:
    struct State;
    explicit LineReader(std::unique_ptr<State> state);
    std::unique_ptr<State> m_state;
};

struct LineCount {
    qint64 lines = 0;     // empty ones included; what stands behind the last line end counts if there is anything
    qint64 marks = 0;     // how often the byte stands in the file that was asked for; NUL: not counted
    QByteArray beginning; // the first 64 KB
};

// One look at the whole file.
Result<LineCount> countLines(const QString &path, char mark = '\0');

// The decoded lines of a small file.
Result<QStringList> readTextLines(const QString &path);

// Replaces the file with the text in code page 936, as it stands: no line end is added or changed. The new file is made
// beside the old one and takes its name and permissions when it is whole, so that a full disk leaves the old one. Where
// the folder allows no new file the old one is written over in place.
Status writeTextFile(const QString &path, const QString &text);

} // namespace platform
