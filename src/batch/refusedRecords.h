// The records that an import could not store: makes remarks with the server's error messages, and saves the records to
// a file that can be corrected and imported again.
#pragma once

#include "batch/remarkList.h"
#include "marc/refusedRecord.h"
#include "platform/result.h"

namespace batch {

using RefusedRecords = std::vector<marc::RefusedRecord>;

// The records that an import did not put into the store.
struct NotImported {
    RefusedRecords refused;
    RefusedRecords leftOut;

    bool isEmpty() const { return refused.empty() && leftOut.empty(); }
    RefusedRecords inListOrder() const;
    QString words() const; // the number of each
};

std::vector<Remark> remarksOf(const NotImported &rest, const marc::PreReadStore &records);

// Returns the records for which the search for duplicates found something, with all hits.
RefusedRecords duplicatesIn(const RemarkList &remarks);

// Replaces the file by those records as they are in the list, in GBK, each followed by CR LF. On failure the file is
// unchanged.
platform::Status saveRefused(const QString &path, const RefusedRecords &refused, const marc::PreReadStore &records);

} // namespace batch
