// The record files used last.
#pragma once

#include "platform/deskState.h"
#include <QStringList>

namespace platform {

// Returns the paths of at most ten files that still exist, newest first.
QStringList recentFiles(const DeskState &state);
void noteRecentFile(const DeskState &state, const QString &path);

} // namespace platform
