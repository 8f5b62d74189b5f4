// The record files used last.
#pragma once

#include "platform/deskState.h"
#include <QStringList>

namespace platform {

// Paths, newest first, ten at most, of files that still stand there.
QStringList recentFiles(const DeskState &state);
void noteRecentFile(const DeskState &state, const QString &path);

} // namespace platform
