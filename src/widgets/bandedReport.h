// A list printed in bands: on each page the title and the column heads above a rule, as many rows as fit, and under a
// second rule the date, the number of pages and the page's own. Texts wrap inside their columns; a row goes to the next
// page whole, unless no page is long enough for it. Of a text longer than 2,000 characters the rest is left out.
#pragma once

#include "platform/tableSource.h"
#include <QDate>
#include <QFont>
#include <QString>
#include <memory>
#include <vector>

class QDialog;
class QPrinter;
class QWidget;

namespace widgets {

// A Song-style face where the machine has one, else the program's own.
QFont reportFont(double points, QFont::Weight weight = QFont::Normal);

struct ReportColumn {
    QString heading;
    int source = 0;   // the column of the rows that it shows
    double share = 1; // of the page's width, relative to the other columns
    Qt::Alignment alignment = Qt::AlignLeft;
};

struct BandedReport {
    QString caption; // of the window and the print job
    QString title;
    std::vector<ReportColumn> columns;
    std::shared_ptr<const platform::TableSource> rows; // null prints as no rows
    QDate date;
    QFont titleFont = reportFont(16, QFont::Bold);
    QFont headFont = reportFont(10.5, QFont::Bold);
    QFont bodyFont = reportFont(10);
};

// Prints the report to a printer or a PDF file, of the pages that the printer asks for. Gives the number of pages of
// the whole report; 0 where the printer or the file could not be written.
int print(const BandedReport &report, QPrinter &printer);

// The toolkit's print preview on the report, not shown yet; it deletes itself when it is closed.
QDialog *newReportPreview(BandedReport report, QWidget *parent);

} // namespace widgets
