// A page of the handbook on paper: black on white, with its pictures as sharp as they are and the pages numbered.
#pragma once

#include <QString>

class QDialog;
class QPrinter;
class QWidget;

namespace handbook {

void printPage(const QString &path, QPrinter &printer);

// The toolkit's print preview on the page, not shown yet; it deletes itself when it is closed.
QDialog *newPagePreview(const QString &path, const QString &title, QWidget *parent);

} // namespace handbook
