// Takes the whole result of an executed statement into a table. Columns of known, moderate width are bound and fetched
// in blocks; from the first long column on, values are asked for one by one, in pieces, whatever their length.
#pragma once

#include "platform/database/odbcHandles.h"
#include "platform/database/resultTable.h"
#include <memory>
#include <optional>

namespace platform {

enum class Fetching { Bound, Unbound };

// Nothing where a bound value proved longer than its column was said to be: the statement is to be run again and read
// unbound. The failure is the driver's.
Result<std::optional<std::shared_ptr<ResultTable>>> readRows(const OdbcHandle &statement, TextForm form,
                                                             Fetching fetching);

} // namespace platform
