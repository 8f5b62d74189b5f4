// Fetches the whole result of an executed statement into a table. Columns of known, moderate width are bound and
// fetched in blocks; from the first long column on, values of any length are fetched one by one, in pieces.
#pragma once

#include "database/odbcHandles.h"
#include "database/resultTable.h"
#include <memory>

namespace database {

enum class Fetching { Bound, Unbound };

// The table, or null if a bound value was longer than its column's declared size. The statement must then be run again
// and read unbound.
using ReadTable = std::shared_ptr<ResultTable>;

// Fails with the driver's error. Afterwards the statement is bound to no memory and fetches one row at a time.
platform::Result<ReadTable> readRows(const OdbcHandle &statement, TextForm form, Fetching fetching);

} // namespace database
