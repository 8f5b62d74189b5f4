// The cursor of the whole screen while a list loads. Setting it twice is the same as setting it once: a list window
// that gives up leaves the wait cursor on, and whoever called it sets the normal one.
#pragma once

namespace catalogue {

void setWaitCursor();
void setNormalCursor();

} // namespace catalogue
