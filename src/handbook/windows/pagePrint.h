// Prints a page of the handbook: black on white, with pictures in high resolution and with page numbers.
#pragma once

#include <QString>

class QDialog;
class QPrinter;
class QWidget;

namespace handbook {

void printPage(const QString &path, QPrinter &printer);

// Returns Qt's print preview of the page, not shown yet; it deletes itself when it is closed.
QDialog *newPagePreview(const QString &path, const QString &title, QWidget *parent);

} // namespace handbook
