// The menu for silencing: the rule of a remark, or its remarks about one tag; the list of the silenced rules; and the
// marks next to the rows of the field grid.
#pragma once

#include "batch/reminders.h"
#include <QMenu>

namespace batch {

// Returns the menu, which is deleted when it is closed. `remark` may be null.
QMenu *silenceMenu(Reminders &reminders, const RuleBook &book, const Remark *remark, QWidget *parent);

} // namespace batch
