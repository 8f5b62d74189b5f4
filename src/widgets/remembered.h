// Remembers between starts, under the name of a window, its geometry and the column widths that the user set in its
// grid.
#pragma once

#include "platform/deskState.h"
#include "widgets/flexGrid.h"

namespace widgets {

// Restores the geometry of a top-level window, maximised or not, and stores it whenever the window is closed. Call
// before the window is shown. `state` must outlive the window.
void rememberPlace(QWidget *window, const platform::DeskState &state);

// Store and restore the column widths that the user set in `grid`, under the name `window`.
void keepColumns(const FlexGrid &grid, const platform::DeskState &state, const QString &window);
void recallColumns(FlexGrid &grid, const platform::DeskState &state, const QString &window);

} // namespace widgets
