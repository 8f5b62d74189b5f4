// The dialog that chooses a file: the toolkit's own, bounded by the screen, its columns fitting it, its sizes and dates
// in Chinese whatever the locale of the session.
#pragma once

#include "platform/host.h"

namespace platform {

// The chosen path in the machine's manner; empty after a cancel. `start` is the folder or the file where the dialog
// begins, the toolkit's choice where it is empty.
QString chooseFileIn(const FileDialog &dialog, const QString &start, QWidget *parent);

} // namespace platform
