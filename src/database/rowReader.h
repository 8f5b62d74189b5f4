// Takes the whole result of an executed statement into a table. Columns of known, moderate width are bound and fetched
// in blocks; from the first long column on, values are asked for one by one, in pieces, whatever their length.
#pragma once

#include "database/odbcHandles.h"
#include "database/resultTable.h"
#include <memory>

namespace database {

enum class Fetching { Bound, Unbound };

// What a reading came to: the table, or none where a bound value proved longer than its column was said to be. The
// statement is then to be run again and read unbound.
using ReadTable = std::shared_ptr<ResultTable>;

// The failure is the driver's. The statement keeps nothing of the reading: it is bound to no memory, and fetches one
// row at a time.
platform::Result<ReadTable> readRows(const OdbcHandle &statement, TextForm form, Fetching fetching);

} // namespace database
