// The dialog that chooses a file or a folder: the desktop's own if the platform theme has one, as on Windows, with a
// desktop portal or on some Linux desktops; otherwise Qt's, limited to the size of the screen, with columns that fit
// it, and headings, sizes and dates in Chinese for every locale of the session.
#pragma once

#include "platform/host.h"

namespace platform {

// Returns the chosen path with native separators; an empty string after a cancel. The dialog begins at the folder or
// file `start`, or where Qt chooses if `start` is empty.
QString chooseFileIn(const FileDialog &dialog, const QString &start, QWidget *parent);

} // namespace platform
