// What the user made of a window, kept between starts under the window's name: its place on the screen, and the widths
// drawn in its grid.
#pragma once

#include "platform/deskState.h"
#include "widgets/flexGrid.h"

namespace widgets {

// Gives a window of the screen, before it is shown, the place in which it was left, maximised where it was, and keeps
// the one in which it is closed from now on. `state` outlives the window.
void rememberPlace(QWidget *window, const platform::DeskState &state);

// The widths of `grid` that were drawn in the window of that name.
void keepColumns(const FlexGrid &grid, const platform::DeskState &state, const QString &window);
void recallColumns(FlexGrid &grid, const platform::DeskState &state, const QString &window);

} // namespace widgets
