// The space for a window on its screen, without the panels of the desktop and the frame that the window manager adds.
#pragma once

#include <QSize>

class QWidget;

namespace platform {

// Returns the largest size that a window may have, excluding its frame. For a window that is not yet shown, the frame
// is assumed to be that of its nearest visible parent, or else a usual one.
QSize usableScreenSize(const QWidget *window);

// Returns whether the screen of the window is so low that its parts must take the least height.
bool isScreenLow(const QWidget *window);

// Moves a visible window, including its frame, so that it is on the screen.
void keepOnScreen(QWidget *window);

} // namespace platform
