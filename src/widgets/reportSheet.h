// A report laid out for one printer: where its pages begin, and the drawing of each. The pages are counted before the
// first is drawn, since each tells the total; that can be done in portions, so that a window stays alive. Of a page no
// more is kept than where it begins. Lengths are the printer's dots.
#pragma once

#include "widgets/reportContent.h"
#include <QPainter>
#include <QPrinter>
#include <QRectF>
#include <limits>
#include <vector>

namespace widgets {

// The report and the printer are to outlive it.
class ReportSheet {
public:
    ReportSheet(const BandedReport &report, const QPrinter &printer);

    // Places at most so many rows more; whether some are left.
    bool place(int count);
    int placedRows() const { return m_row; }
    int rowCount() const { return m_report.rows ? m_report.rows->rowCount() : 0; }

    // Of the whole report, once every row is placed.
    int pages() const { return int(m_starts.size()); }
    void draw(QPainter &painter, int page) const;
    // Afterwards, in the PDF file that the pages were drawn into: its text is the text of the report.
    void nameCharacters(const QString &pdf) const;

private:
    // Where a page begins: a row, and a line of it where the row is longer than a page.
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
    double m_top = 0; // of the rows
    double m_bottom = 0;
    qsizetype m_linesOfPage = std::numeric_limits<int>::max();
    std::vector<PageStart> m_starts{{}};
    int m_row = 0;  // the next to be placed
    double m_y = 0; // where it goes
};

// Puts the pages that the printer asks for on it, one at a step; what is not finished when it goes is called off.
class ReportRun {
public:
    ReportRun(const ReportSheet &sheet, QPrinter &printer);
    ~ReportRun();
    Q_DISABLE_COPY_MOVE(ReportRun)

    bool step(); // whether there is more to do
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
