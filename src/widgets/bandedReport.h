// A list printed in bands: on each page the title and the column heads above a rule, as many rows as fit, and under a
// second rule the date, the number of pages and the page's own. Texts wrap inside their columns; a row goes to the next
// page whole, unless no page is long enough for it. Of a text longer than 2,000 characters the rest is left out.
#pragma once

#include "widgets/reportContent.h"

class QDialog;
class QPrinter;
class QWidget;

namespace widgets {

// Prints the report to a printer or a PDF file, of the pages that the printer asks for. Gives the number of pages of
// the whole report; 0 where the printer or the file could not be written.
int print(const BandedReport &report, QPrinter &printer);

// The print preview of the report, not shown yet; it deletes itself when it is closed. It is the toolkit's own, or that
// of long reports, which paints a page when it is looked at.
QDialog *newReportPreview(BandedReport report, QWidget *parent);

} // namespace widgets
