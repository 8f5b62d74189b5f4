// The reading loop of the split and the merge: the records of one file, as byte sequences that are not interpreted.
#pragma once

#include "marc/recordCutter.h"
#include "platform/byteWriter.h"
#include "platform/textFile.h"
#include <memory>

namespace filetools {

class RecordSource {
public:
    // `beforeReading` is called before the next block is read. By then the caller must have flushed the writers passed
    // to writeTo().
    static platform::Result<std::unique_ptr<RecordSource>> open(const QString &path,
                                                                std::function<void()> beforeReading);

    // Reads the next record. Returns false at the end of the file. Fails on a read error.
    platform::Result<bool> next();
    // Writes the current record on its own line, including its terminator and without its line breaks. The writer must
    // be flushed before this object is destroyed.
    platform::Status writeTo(platform::ByteWriter &writer) const;
    // Returns whether nothing follows the line of the current record at the moment; the file may still grow.
    bool atEnd() const { return m_reader.atEnd(); }

private:
    explicit RecordSource(platform::LineReader reader);

    platform::LineReader m_reader;
    marc::RecordCutter m_cutter;
};

} // namespace filetools
