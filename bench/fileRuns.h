// Split and merge in their real windows.
#pragma once

#include "benchStage.h"
#include "sideBySide.h"

namespace bench {

inline constexpr int perFile = 1000; // records of each part

// Gives back the room of a round's files. They stay until the whole run ends: after many were deleted some file systems
// look for the number of a new one long, and only a side that makes many would pay for that.
void emptyFiles(const QString &folder);

// A round into a new folder, emptied behind it; nothing where less came out than stands in the source.
std::optional<double> intoFolder(const BenchStage &stage, const RecordFile &source,
                                 const std::function<std::optional<double>(QString)> &round);

// A command of the shell that makes its files in such a folder, for its time alone.
Side commandIntoFolder(const BenchStage &stage, const RecordFile &source, const QString &line);

// A round each, from the press of the button.
std::optional<double> splitInWindow(const QString &source, const QString &folder);
std::optional<double> mergeInWindow(const QStringList &sources, const QString &folder);

// The parts that the split makes of the source, in a folder that stays.
QStringList partsOf(const BenchStage &stage, const RecordFile &source);

} // namespace bench
