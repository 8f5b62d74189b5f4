// One record of a file as it would be read, for a look at its characters before the work.
#pragma once

#include "tidy/sourceEncoding.h"

namespace tidy {

struct SampleRecord {
    qint64 number = 0; // from 1; 0: no record was found
    QString text;      // a field a line, subfield delimiters as they stand
};

// The first record with characters beyond ASCII among the first ones of the file, else the first. `guessed` is what the
// survey says. A bounded piece of work, whatever the file.
platform::Result<SampleRecord> sampleRecord(const QString &path, SourceEncoding choice, marc::FileEncoding guessed);

} // namespace tidy
