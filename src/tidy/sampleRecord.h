// Reads one record of a file, so that the user can check its characters before the run.
#pragma once

#include "tidy/sourceEncoding.h"

namespace tidy {

struct SampleRecord {
    qint64 number = 0; // counted from 1; 0: no record found
    QString text;      // one field per line, with subfield delimiters unchanged
};

// Returns the first record with characters beyond ASCII among the first records of the file, else the first record.
// `guessed` is the result of the survey. The amount of work is limited for any file.
platform::Result<SampleRecord> sampleRecord(const QString &path, SourceEncoding choice, marc::FileEncoding guessed);

} // namespace tidy
