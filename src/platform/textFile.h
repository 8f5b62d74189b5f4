// Text files in code page 936. A line ends at a carriage return, alone or followed by a line feed; a line feed alone
// does not end a line. Lines are found in the bytes and then decoded one by one: 0x0D is never half of a character.
#pragma once

#include "platform/fileBlocks.h"
#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <optional>

namespace platform {

// Reads a file line by line; holds at most one block and the current line.
class LineReader {
public:
    static Result<LineReader> open(const QString &path); // fails like FileBlocks::open()

    // Returns whether nothing is left to read, not counting the line end of the last line.
    bool atEnd();

    // Returns the next line without its line end; an empty view at the end of the file. Valid until the next call of
    // any function here, atEnd() included.
    QByteArrayView readLine();

    // Returns the read error that occurred before the end of the file, if any; the reader is then at its end.
    const std::optional<Failure> &fault() const { return m_blocks.fault(); }

    // Returns to the start of the file.
    void rewind();

private:
    explicit LineReader(FileBlocks blocks);

    FileBlocks m_blocks;
    QByteArrayView m_rest; // the unread bytes of the block
    QByteArray m_joined;   // a line that crosses the end of a block
    bool m_passLineFeed = false;
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
