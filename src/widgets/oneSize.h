// For a dialog that gains nothing from another size.
#pragma once

class QWidget;

namespace widgets {

// Removes minimise and maximise from the frame of the dialog. Call before it is shown.
void keepOneSize(QWidget *dialog);

} // namespace widgets
