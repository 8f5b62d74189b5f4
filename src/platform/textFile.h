// Text files in code page 936. A line ends at a carriage return, alone or followed by a line feed; a line feed alone
// does not end a line. Lines are found in the bytes and then decoded one by one: 0x0D is never half of a character.
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

// Reads a file line by line in blocks; holds at most one block and the current line.
class LineReader {
public:
    // Fails if the file is missing, unreadable or not a plain file; never blocks on a pipe or a device.
    static Result<LineReader> open(const QString &path);
    LineReader(LineReader &&) noexcept;
    LineReader &operator=(LineReader &&) noexcept;
    ~LineReader();

    // Returns whether nothing is left to read, not counting the line end of the last line.
    bool atEnd() const;

    // Returns the next line without its line end; an empty view at the end of the file. Valid until the next call of
    // any function here, atEnd() included.
    QByteArrayView readLine();

    // Reads the next line up to and including the first `stop` byte in it; the rest of the line is skipped without
    // being held. A line without that byte is read whole; if such a line is longer than `heldOnTrust` bytes and the
    // rest of the file has no `stop` byte either, only its beginning is read, and the reader is at its end. A line that
    // is complete in the block is returned as a view, valid as with readLine(); any other line is appended to
    // `gathered`, and an empty view returned.
    QByteArrayView lineThrough(char stop, QByteArray &gathered);

    // Returns whether the line returned last is complete in the block, with nothing skipped and CR LF after it.
    bool stands() const;
    // Sets a function that is called before the block is overwritten; until then all lines returned from it stay valid.
    void beforeReading(std::function<void()> told);

    // Returns whether the byte occurs in the rest of the file; if not, the reader is at its end afterwards. For callers
    // that gather bytes up to that byte: the search pays off beyond `heldOnTrust` of them.
    bool reaches(char wanted);
    static constexpr qsizetype heldOnTrust = 8 << 20;

    // Returns the read error that occurred before the end of the file, if any; the reader is then at its end.
    std::optional<Failure> fault() const;

    // Returns to the start of the file.
    void rewind();

private:
    struct State;
    explicit LineReader(std::unique_ptr<State> state);
    std::unique_ptr<State> m_state;
};

struct LineCount {
    qint64 lines = 0;     // including empty ones and an unfinished, non-empty last one
    qint64 marks = 0;     // occurrences of the byte `mark` in the file; 0 if it is NUL
    QByteArray beginning; // the first 64 KB at most
};

// Reads the whole file once.
Result<LineCount> countLines(const QString &path, char mark = '\0');

// Returns the decoded lines of a small file.
Result<QStringList> readTextLines(const QString &path);

// Replaces the file by the text in code page 936; adds and changes no line end. The new file is written next to the old
// one and gets its name and permissions when it is complete, so that a full disk leaves the old file intact. If the
// folder allows no new file, the old one is overwritten in place.
Status writeTextFile(const QString &path, const QString &text);

} // namespace platform
