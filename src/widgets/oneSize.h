// Gives a dialog a single size, if its contents gain nothing from another one.
#pragma once

class QWidget;

namespace widgets {

// Removes minimise and maximise from the frame of the dialog. Call before it is shown.
void keepOneSize(QWidget *dialog);

} // namespace widgets
