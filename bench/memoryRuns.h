// Memory use of a window, measured in a separate process so that earlier work does not count.
#pragma once

#include "benchStage.h"
#include <optional>

namespace bench {

// Return the resident bytes of the process once its window shows all records or rows.
std::optional<double> memoryOfReading(const RecordFile &file);
std::optional<double> memoryOfListing(const QString &database, int rows);
// Returns the bytes per remark that a proof of the file's records takes, without a window, before the end of its search
// for duplicates.
std::optional<double> memoryOfRemarks(const RecordFile &file);

// The measuring process: does the work that its arguments name and prints the bytes. Returns the exit code, or
// std::nullopt if the arguments name no such work.
std::optional<int> tellMemory(const QStringList &arguments);

} // namespace bench
