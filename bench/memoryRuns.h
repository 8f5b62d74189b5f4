// What a window needs of memory: told by a process of its own, since what went before would count.
#pragma once

#include "benchStage.h"
#include <optional>

namespace bench {

// The bytes of the process in memory once its window holds all that there is.
std::optional<double> memoryOfReading(const RecordFile &file);
std::optional<double> memoryOfListing(const QString &database, int rows);

// The process itself: does the work that its arguments ask for and prints the bytes. The exit code; nothing where they
// ask for no such thing.
std::optional<int> tellMemory(const QStringList &arguments);

} // namespace bench
