// The three proofs of one record, one after the other, and their joined report. They read the grid's rows as they
// stand, with every edit in them, and change nothing.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"
#include "proof/fault.h"

namespace proof {

// What each of them has found.
struct RecordFaults {
    std::vector<Fault> structural;
    std::vector<Fault> byTemplate;
    std::vector<Fault> isbn;
    QString complaint;                       // the text of a box about a missing file, else empty
    std::optional<platform::Failure> unread; // why the template could not be opened
};

// `folder` is the program's own, with a separator at its end.
RecordFaults faultsOf(const marc::FieldRows &rows, const QString &folder);

inline constexpr QStringView proofPassed = u"校对通过"; // the box's text where the report is empty

struct RecordProof {
    QString report;    // empty where the record has passed
    QString complaint; // the text of a box to be shown ahead of the report, else empty
};

// Fails, with no report at all, where the template cannot
// be opened.
platform::Result<RecordProof> proofRecord(const marc::FieldRows &rows, const QString &folder);

} // namespace proof
