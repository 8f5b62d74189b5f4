// Whether a modal window blocks another window.
#pragma once

class QWidget;

namespace widgets {

// Returns whether a modal window blocks the window of `widget`. Before the window manager has activated a new modal
// window, the blocked window is still active and Qt sends it shortcuts, which must not open a second window or close
// the blocked window.
bool isBlocked(const QWidget *widget);

} // namespace widgets
