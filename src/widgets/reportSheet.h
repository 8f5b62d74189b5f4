// A report laid out for one printer: finds where its pages begin and draws each page. All pages are counted before the
// first is drawn, since each shows the total. Counting can be done in portions, so that a window stays responsive. Of
// each page only its start is stored. Lengths are in the printer's dots.
#pragma once

#include "widgets/reportContent.h"
#include <QPainter>
#include <QPrinter>
#include <QRectF>
#include <limits>
#include <vector>

namespace widgets {

// `report` and `printer` must outlive the sheet.
class ReportSheet {
public:
    ReportSheet(const BandedReport &report, const QPrinter &printer);

    // Places at most `count` more rows. Returns whether rows are left.
    bool place(int count);
    int placedRows() const { return m_row; }
    int rowCount() const { return m_report.rows ? m_report.rows->rowCount() : 0; }

    // The number of pages of the whole report; valid when every row is placed.
    int pages() const { return int(m_starts.size()); }
    void draw(QPainter &painter, int page) const;
    // Call after drawing, with the PDF file that the pages were drawn into: makes its text the text of the report.
    void nameCharacters(const QString &pdf) const;

private:
    // Where a page begins: a row, and a line in it if the row is longer than a page.
    struct PageStart {
        int row = 0;
        qsizetype line = 0;
    };
    struct Column {
        double left;
        double width;
        Qt::Alignment alignment;
    };
    using Cells = std::vector<QStringList>; // the lines of each cell of a row
    Cells cells(int row) const;
    qsizetype linesOf(int row);
    double points(double count) const { return count * m_dotsPerPoint; }
    void placeColumns();
    void drawLines(QPainter &painter, const ReportFace &face, const Cells &cells, qsizetype from, double top) const;
    void drawRule(QPainter &painter, double y) const;
    void drawHeading(QPainter &painter) const;
    void drawFooting(QPainter &painter, int page) const;

    const BandedReport &m_report;
    double m_dotsPerPoint;
    QRectF m_page;
    ReportFace m_title, m_head, m_body;
    std::vector<Column> m_columns;
    QStringList m_titleLines;
    Cells m_heads;
    double m_top = 0; // top of the rows
    double m_bottom = 0;
    qsizetype m_linesOfPage = std::numeric_limits<int>::max();
    std::vector<PageStart> m_starts{{}};
    int m_row = 0;  // the next row to place
    double m_y = 0; // its vertical position
};

// Prints the page range of the printer, one page per step. Destroying an unfinished run cancels the printing.
class ReportRun {
public:
    ReportRun(const ReportSheet &sheet, QPrinter &printer);
    ~ReportRun();
    Q_DISABLE_COPY_MOVE(ReportRun)

    bool step(); // returns whether more steps are needed
    bool failed() const { return m_failed; }
    int donePages() const { return m_next - m_first; }
    int wantedPages() const { return m_last - m_first + 1; }

private:
    const ReportSheet &m_sheet;
    QPrinter &m_printer;
    QPainter m_painter;
    int m_first;
    int m_last;
    int m_next;
    bool m_failed;
};

} // namespace widgets
