// Keys that act as other keys in the forms of the program.
#pragma once

#include <QWidget>

namespace widgets {

// Moves the focus as the Tab key would from `from`.
void sendTab(QWidget *from);

// Makes Enter act as the Tab key in the control, except an Enter that ends the composition of an input method.
void enterActsAsTab(QWidget *control);

} // namespace widgets
