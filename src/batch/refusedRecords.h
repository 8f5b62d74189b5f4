// The records that an import could not store: makes remarks with the server's error messages, and saves the records to
// a file that can be corrected and imported again.
#pragma once

#include "batch/remark.h"
#include "marc/preReadStore.h"
#include "marc/refusedRecord.h"
#include "platform/result.h"

namespace batch {

using RefusedRecords = std::vector<marc::RefusedRecord>;

std::vector<Remark> remarksOf(const RefusedRecords &refused, const marc::PreReadStore &records);

// Replaces the file by those records as they are in the list, in GBK, each followed by CR LF. On failure the file is
// unchanged.
platform::Status saveRefused(const QString &path, const RefusedRecords &refused, const marc::PreReadStore &records);

} // namespace batch
