// Keys that stand for other keys in the program's forms.
#pragma once

#include <QWidget>

namespace widgets {

// Moves the focus on as the Tab key would from there.
void sendTab(QWidget *from);

// Enter in the control acts as the Tab key. An Enter that ends the composition of an input method is not meant.
void enterActsAsTab(QWidget *control);

} // namespace widgets
