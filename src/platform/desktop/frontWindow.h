// The window that the user works in.
#pragma once

class QWidget;

namespace platform {

// Returns whether a modal window blocks the window of `widget`. Before the window manager has activated a new modal
// window, the blocked window is still active and Qt sends it shortcuts, which must not open a second window or close
// the blocked window.
bool isBlocked(const QWidget *widget);

// Returns the active window, or the modal window if it blocks the active one or no window is active; nullptr if there
// is neither.
QWidget *windowInFront();

} // namespace platform
