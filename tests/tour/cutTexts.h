// Finds texts that do not fit their labels, buttons and columns, and windows that do not fit the screen.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace tour {

// Returns one line for each visible label, button and heading of the window that shows less than its whole text, and
// one if the window exceeds its screen. Labels that elide the middle of their text by design, and contents that scroll,
// do not count.
QStringList cutTexts(const QWidget *window);

} // namespace tour
