// The record files used last.
#pragma once

#include "platform/deskState.h"
#include <QStringList>

namespace platform {

// Returns the paths of at most ten files that still exist, newest first.
QStringList recentFiles(const DeskState &state);
void noteRecentFile(const DeskState &state, const QString &path);

// Returns the names of the files for a list. Files of one name are followed by as many of their last folders as
// distinguish them: "一月.iso（甲/2026）".
QStringList recentNames(const QStringList &paths);

} // namespace platform
