// The reading loop of the split and the merge: the records of one file, as byte sequences that are not interpreted.
#pragma once

#include "marc/recordCutter.h"
#include "platform/byteWriter.h"

namespace filetools {

class RecordSource {
public:
    static platform::Result<RecordSource> open(const QString &path);

    // Reads the next record. Returns false at the end of the file. Fails on a read error.
    platform::Result<bool> next();
    // Writes the current record on its own line, including its terminator and without its line breaks.
    platform::Status writeTo(platform::ByteWriter &writer) const;
    // See RecordCutter; the current record is not available any longer.
    bool atEnd() { return m_cutter.atEnd(); }

private:
    explicit RecordSource(marc::RecordCutter cutter);

    marc::RecordCutter m_cutter;
};

} // namespace filetools
