// The three proofs of one record, one after the other, and their joined report. They read the grid's rows as they
// stand, with every edit in them, and change nothing.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"

namespace proof {

inline constexpr QStringView proofPassed = u"校对通过"; // the box's text where the report is empty

struct RecordProof {
    QString report;    // empty where the record has passed
    QString complaint; // the text of a box to be shown ahead of the report, else empty
};

// `folder` is the program's own, with a separator at its end. Fails, with no report at all, where the template cannot
// be opened.
platform::Result<RecordProof> proofRecord(const marc::FieldRows &rows, const QString &folder);

} // namespace proof
