// The records that an import could not put into the store: named with the server's words, and taken out as a file that
// can be mended and read again.
#pragma once

#include "batch/remark.h"
#include "marc/preReadStore.h"
#include "marc/refusedRecord.h"
#include "platform/result.h"

namespace batch {

using RefusedRecords = std::vector<marc::RefusedRecord>;

std::vector<Remark> remarksOf(const RefusedRecords &refused, const marc::PreReadStore &records);

// Replaces the file by those records as they stand in the list, in GBK, each ended by CR LF. The whole file or none.
platform::Status saveRefused(const QString &path, const RefusedRecords &refused, const marc::PreReadStore &records);

} // namespace batch
