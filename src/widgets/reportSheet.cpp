#include "widgets/reportSheet.h"
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {
constexpr double pointsPerInch = 72;
constexpr double gap = 6;        // points between columns, and above and below a rule
constexpr double rowPadding = 4; // points below a row
constexpr double rule = 0.75;    // points

qsizetype lineCount(const std::vector<QStringList> &cells) {
    qsizetype lines = 1;
    for (const QStringList &cell : cells)
        lines = std::max(lines, cell.size());
    return lines;
}

} // namespace

ReportSheet::ReportSheet(const BandedReport &report, const QPrinter &printer)
    : m_report(report)
    , m_dotsPerPoint(printer.resolution() / pointsPerInch)
    , m_page(QPointF(0, 0), QSizeF(printer.pageLayout().paintRectPixels(printer.resolution()).size()))
    , m_title(report.titleFont, &printer)
    , m_head(report.headFont, &printer)
    , m_body(report.bodyFont, &printer) {
    placeColumns();
    m_titleLines = m_title.wrapped(report.title, m_page.width());
    for (size_t at = 0; at < m_columns.size(); ++at)
        m_heads.push_back(m_head.wrapped(report.columns[at].heading, m_columns[at].width));
    m_top = double(m_titleLines.size()) * m_title.lineHeight + double(lineCount(m_heads)) * m_head.lineHeight +
            3 * points(gap);
    m_bottom = m_page.bottom() - m_body.lineHeight - 2 * points(gap);
    m_linesOfPage = std::max(qsizetype((m_bottom - m_top - points(rowPadding)) / m_body.lineHeight), qsizetype(1));
    m_y = m_top;
}

void ReportSheet::placeColumns() {
    double shares = 0;
    for (const ReportColumn &column : m_report.columns)
        shares += std::max(column.share, 0.0);
    const double gaps = points(gap) * double(m_report.columns.size() - 1);
    double left = 0;
    for (const ReportColumn &column : m_report.columns) {
        const double part = shares > 0 ? std::max(column.share, 0.0) / shares : 0;
        const double width = std::max((m_page.width() - gaps) * part, 1.0);
        m_columns.push_back({left, width, column.alignment});
        left += width + points(gap);
    }
}

bool ReportSheet::place(int count) {
    for (const int end = int(std::min(qint64(rowCount()), qint64(m_row) + count)); m_row < end; ++m_row) {
        qsizetype lines = linesOf(m_row);
        double height = double(lines) * m_body.lineHeight + points(rowPadding);
        if (m_y + height > m_bottom && m_y > m_top) {
            m_starts.push_back({m_row, 0});
            m_y = m_top;
        }
        for (qsizetype line = m_linesOfPage; lines > m_linesOfPage; line += m_linesOfPage) {
            m_starts.push_back({m_row, line});
            lines -= m_linesOfPage;
            height = double(lines) * m_body.lineHeight + points(rowPadding);
        }
        m_y += height;
    }
    return m_row < rowCount();
}

// Returns as many lines as cells() makes. For most texts the fast test is enough.
qsizetype ReportSheet::linesOf(int row) {
    qsizetype lines = 1;
    for (size_t at = 0; at < m_columns.size(); ++at) {
        const QString text = m_report.rows->text(row, m_report.columns[at].source);
        if (!m_body.surelyOneLine(text, m_columns[at].width))
            lines = std::max(lines, m_body.wrapped(text, m_columns[at].width).size());
    }
    return lines;
}

ReportSheet::Cells ReportSheet::cells(int row) const {
    Cells result;
    for (size_t at = 0; at < m_columns.size(); ++at)
        result.push_back(m_body.wrapped(m_report.rows->text(row, m_report.columns[at].source), m_columns[at].width));
    return result;
}

void ReportSheet::drawLines(QPainter &painter, const ReportFace &face, const Cells &cells, qsizetype from,
                            double top) const {
    for (size_t at = 0; at < cells.size(); ++at) {
        const Column &column = m_columns[at];
        const qsizetype end = std::min(cells[at].size(), from + m_linesOfPage);
        double y = top;
        for (qsizetype line = from; line < end; ++line) {
            face.draw(painter, column.left, y, column.width, column.alignment, cells[at][line]);
            y += face.lineHeight;
        }
    }
}

void ReportSheet::drawRule(QPainter &painter, double y) const {
    painter.fillRect(QRectF(0, y, m_page.width(), points(rule)), Qt::black);
}

void ReportSheet::drawHeading(QPainter &painter) const {
    double y = 0;
    for (const QString &line : m_titleLines) {
        m_title.draw(painter, 0, y, m_page.width(), Qt::AlignHCenter, line);
        y += m_title.lineHeight;
    }
    drawLines(painter, m_head, m_heads, 0, y + points(gap));
    drawRule(painter, m_top - points(gap));
}

void ReportSheet::drawFooting(QPainter &painter, int page) const {
    drawRule(painter, m_bottom + points(gap));
    const double top = m_page.bottom() - m_body.lineHeight;
    const auto put = [&](Qt::Alignment alignment, const QString &text) {
        m_body.draw(painter, 0, top, m_page.width(), alignment, text);
    };
    put(Qt::AlignLeft, u"报表日期：" + m_report.date.toString(u"yyyy-MM-dd"_s));
    put(Qt::AlignHCenter, u"共" + QString::number(pages()) + u"页");
    put(Qt::AlignRight, u"第" + QString::number(page + 1) + u"页");
}

void ReportSheet::draw(QPainter &painter, int page) const {
    drawHeading(painter);
    const PageStart start = m_starts[size_t(page)];
    const bool last = page + 1 == pages();
    const PageStart end = last ? PageStart{rowCount(), 0} : m_starts[size_t(page) + 1];
    double y = m_top;
    for (int row = start.row; row < end.row || (row == end.row && end.line > 0); ++row) {
        const Cells lines = cells(row);
        const qsizetype from = row == start.row ? start.line : 0;
        drawLines(painter, m_body, lines, from, y);
        y += double(lineCount(lines) - from) * m_body.lineHeight + points(rowPadding);
    }
    drawFooting(painter, page);
}

void ReportSheet::nameCharacters(const QString &pdf) const {
    SameGlyph names;
    for (const ReportFace *face : {&m_title, &m_head, &m_body})
        face->addSameGlyphs(names);
    (void)nameDrawnCharacters(pdf, names); // the PDF is usable without them
}

ReportRun::ReportRun(const ReportSheet &sheet, QPrinter &printer)
    : m_sheet(sheet)
    , m_printer(printer)
    , m_first(std::clamp(printer.fromPage(), 1, sheet.pages()))
    , m_last(printer.toPage() > 0 ? std::clamp(printer.toPage(), m_first, sheet.pages()) : sheet.pages())
    , m_next(m_first)
    , m_failed(!m_painter.begin(&printer)) {}

ReportRun::~ReportRun() {
    if (m_painter.isActive())
        m_printer.abort();
}

bool ReportRun::step() {
    m_failed = m_failed || (m_next > m_first && !m_printer.newPage());
    if (m_failed)
        return false;
    m_sheet.draw(m_painter, m_next - 1);
    if (++m_next <= m_last)
        return true;
    // A preview paints through the same printer and writes no file.
    const bool makesPdf = m_painter.paintEngine()->type() == QPaintEngine::Pdf;
    m_failed = !m_painter.end();
    if (makesPdf && !m_failed && !m_printer.outputFileName().isEmpty())
        m_sheet.nameCharacters(m_printer.outputFileName());
    return false;
}

} // namespace widgets
