// Split and merge in the real windows.
#pragma once

#include "benchStage.h"
#include "sideBySide.h"

namespace bench {

inline constexpr int perFile = 1000; // records in each part

// Truncates the files of a round to free their disk space. They are not deleted before the whole run ends: after many
// deletions some file systems search long for a free inode, which would slow down only the side that creates many
// files.
void emptyFiles(const QString &folder);

// Runs a round in a new folder and truncates its files afterwards. std::nullopt if they hold less than the source.
std::optional<double> intoFolder(const BenchStage &stage, const RecordFile &source,
                                 const std::function<std::optional<double>(QString)> &round);

// Times a shell command that writes its files into such a folder.
Side commandIntoFolder(const BenchStage &stage, const RecordFile &source, const QString &line);

// Run one round. Return the seconds from the press of the button.
std::optional<double> splitInWindow(const QString &source, const QString &folder);
std::optional<double> mergeInWindow(const QStringList &sources, const QString &folder);

// Splits the source into a new folder and returns the paths of the parts.
QStringList partsOf(const BenchStage &stage, const RecordFile &source);

} // namespace bench
