// Texts of a window that its labels and buttons have no room for.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace tour {

// One line for each visible label and button of the window that shows less than its text. Labels that leave out the
// middle on their own count as whole, and so does what scrolls.
QStringList cutTexts(const QWidget *window);

} // namespace tour
