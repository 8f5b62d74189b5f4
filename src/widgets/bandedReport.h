// Prints a list as a report. Each page has the title and the column headings above a rule, the rows that fit, and below
// a second rule the date, the page number and the number of pages. Texts wrap inside their columns. A row is not split
// between pages unless it is longer than a page. A text is cut off after 2,000 characters.
#pragma once

#include "widgets/reportContent.h"

class QDialog;
class QPrinter;
class QWidget;

namespace widgets {

// Prints the report to a printer or a PDF file, limited to the page range of the printer. Returns the number of pages
// of the whole report, or 0 if writing to the printer or the file failed.
int print(const BandedReport &report, QPrinter &printer);

// Creates a print preview of the report, which is not shown yet and deletes itself when closed. It is Qt's own preview,
// or LongPreview for long reports, which paints only the page shown.
QDialog *newReportPreview(BandedReport report, QWidget *parent);

} // namespace widgets
