// Qt's own print preview, with the icons of the program and with Ctrl+P for printing.
#pragma once

class QPrinter;
class QPrintPreviewDialog;
class QWidget;

namespace widgets {

// The printer must outlive the dialog.
QPrintPreviewDialog *newPrintPreview(QPrinter &printer, QWidget *parent);

} // namespace widgets
