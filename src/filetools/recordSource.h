// The reading loop of the split and of the merge: the records of one file, as runs of bytes that nobody looks into.
#pragma once

#include "marc/recordCutter.h"
#include "platform/byteWriter.h"
#include "platform/textFile.h"
#include <memory>

namespace filetools {

class RecordSource {
public:
    // `beforeReading` is called before it reads on: whoever writes hands over by then what writeTo() gave him.
    static platform::Result<std::unique_ptr<RecordSource>> open(const QString &path,
                                                                std::function<void()> beforeReading);

    // Moves on to the next record; false at the end of the file. Fails where the machine stops giving bytes.
    platform::Result<bool> next();
    // Writes the record in hand, its terminator included and its line breaks left out, on a line of its own. It must be
    // handed over before this object goes.
    platform::Status writeTo(platform::ByteWriter &writer) const;
    // Whether nothing stands behind the line of the record in hand, at this moment: a file may still grow.
    bool atEnd() const { return m_reader.atEnd(); }

private:
    explicit RecordSource(platform::LineReader reader);

    platform::LineReader m_reader;
    marc::RecordCutter m_cutter;
};

} // namespace filetools
