// The text that a cell of a grid shows of its value.
#pragma once

#include <QString>

namespace widgets {

// Returns the beginning of the value as one line; laying out a pasted megabyte would freeze the view.
QString shownText(const QString &value);

} // namespace widgets
