// Finds texts that do not fit their labels and buttons.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace tour {

// Returns one line for each visible label and button of the window that shows less than its whole text. Labels that
// elide the middle of their text by design, and contents that scroll, do not count.
QStringList cutTexts(const QWidget *window);

} // namespace tour
