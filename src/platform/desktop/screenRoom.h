// What room a window has: the screen's, without the panels of the desktop and the frame that the window manager adds.
#pragma once

#include <QSize>

class QWidget;

namespace platform {

// The largest size that a window may have, its frame not counted. Before it is shown its frame is taken to be like that
// of the window it belongs to, else as an ordinary one.
QSize roomOnScreen(const QWidget *window);

// Moves a window that is shown, its frame with it, onto the screen.
void keepOnScreen(QWidget *window);

} // namespace platform
