#include "widgets/bandedReport.h"
#include "platform/desktop/faces.h"
#include "platform/desktop/screenRoom.h"
#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextLayout>
#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {
constexpr double pointsPerInch = 72;
constexpr double gap = 6;        // points between columns, and above and under a rule
constexpr double rowPadding = 4; // points under a row
constexpr double rule = 0.75;    // points
constexpr QSize previewSize(900, 700);
const QMarginsF margins(15, 15, 15, 15); // millimetres, until the user sets others

// The beginning of a text, which is all of any honest one: to lay out a million characters takes a minute. Characters
// that draw nothing become blanks, since each is looked for in every font of the machine.
QString printable(const QString &text) {
    constexpr qsizetype longest = 2000;
    QString shown = text.left(longest);
    if (text.size() > longest)
        shown += u'…';
    shown.replace(u"\r\n"_s, u"\n"_s);
    for (QChar &character : shown) {
        if (character.category() == QChar::Other_Control && character != u'\n')
            character = u' ';
    }
    return shown;
}

// What a font measures on the device that is printed on.
struct Face {
    Face(const QFont &font, const QPaintDevice *device)
        : font(font)
        , device(device)
        , metrics(font, device) {
        // Chinese characters may come from another face, with other heights: a line has room for both.
        QTextLayout both(u"书Ag"_s, font, device);
        both.beginLayout();
        const QTextLine line = both.createLine();
        both.endLayout();
        ascent = line.ascent();
        lineHeight = line.height() + std::max(line.leading(), 0.0);
    }

    QStringList wrapped(const QString &whole, double width) const {
        const QString text = printable(whole);
        const bool oneLine = !text.contains(u'\n') && metrics.horizontalAdvance(text) <= width;
        if (oneLine)
            return {text};
        QString content = text;
        content.replace(u'\n', QChar::LineSeparator);
        QTextLayout layout(content, font, device);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        QStringList lines;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines.append(content.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator));
        }
        layout.endLayout();
        return lines;
    }

    QFont font;
    const QPaintDevice *device;
    // On a common base line, so that the cells of a row stand level whatever their script.
    void draw(QPainter &painter, double left, double top, double width, Qt::Alignment alignment,
              const QString &line) const {
        const double spare = width - metrics.horizontalAdvance(line);
        const double shift = alignment & Qt::AlignRight ? spare : alignment & Qt::AlignHCenter ? spare / 2 : 0;
        painter.setFont(font);
        painter.drawText(QPointF(left + shift, top + ascent), line);
    }

    QFontMetricsF metrics;
    double ascent = 0;
    double lineHeight = 0;
};

struct Column {
    double left;
    double width;
    Qt::Alignment alignment;
};

// Where a page begins: a row, and a line of it where the row is longer than a page.
struct PageStart {
    int row = 0;
    qsizetype line = 0;
};

// The report laid out for one printer. Lengths are the printer's dots.
class Sheet {
public:
    Sheet(const BandedReport &report, const QPrinter &printer);
    int pages() const { return int(m_starts.size()); }
    void draw(QPainter &painter, int page) const;

private:
    using Cells = std::vector<QStringList>; // the lines of each cell of a row
    Cells cells(int row) const;
    int rowCount() const { return m_report.rows ? m_report.rows->rowCount() : 0; }
    double points(double count) const { return count * m_dotsPerPoint; }
    void placeColumns();
    void placePages();
    void drawLines(QPainter &painter, const Face &face, const Cells &cells, qsizetype from, double top) const;
    void drawRule(QPainter &painter, double y) const;
    void drawHeading(QPainter &painter) const;
    void drawFooting(QPainter &painter, int page) const;

    const BandedReport &m_report;
    double m_dotsPerPoint;
    QRectF m_page;
    Face m_title, m_head, m_body;
    std::vector<Column> m_columns;
    QStringList m_titleLines;
    Cells m_heads;
    double m_top = 0; // of the rows
    double m_bottom = 0;
    qsizetype m_linesOfPage = std::numeric_limits<int>::max();
    std::vector<PageStart> m_starts;
};

qsizetype lineCount(const std::vector<QStringList> &cells) {
    qsizetype lines = 1;
    for (const QStringList &cell : cells)
        lines = std::max(lines, cell.size());
    return lines;
}

Sheet::Sheet(const BandedReport &report, const QPrinter &printer)
    : m_report(report)
    , m_dotsPerPoint(printer.resolution() / pointsPerInch)
    , m_page(QPointF(0, 0), QSizeF(printer.pageLayout().paintRectPixels(printer.resolution()).size()))
    , m_title(report.titleFont, &printer)
    , m_head(report.headFont, &printer)
    , m_body(report.bodyFont, &printer) {
    placeColumns();
    m_titleLines = m_title.wrapped(report.title, m_page.width());
    for (std::size_t at = 0; at < m_columns.size(); ++at)
        m_heads.push_back(m_head.wrapped(report.columns[at].heading, m_columns[at].width));
    m_top = double(m_titleLines.size()) * m_title.lineHeight + double(lineCount(m_heads)) * m_head.lineHeight +
            3 * points(gap);
    m_bottom = m_page.bottom() - m_body.lineHeight - 2 * points(gap);
    placePages();
}

void Sheet::placeColumns() {
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

// The pages are counted before the first is drawn, since each tells the total. Only their beginnings are kept.
void Sheet::placePages() {
    m_linesOfPage = std::max(qsizetype((m_bottom - m_top - points(rowPadding)) / m_body.lineHeight), qsizetype(1));
    m_starts.push_back({});
    double y = m_top;
    for (int row = 0; row < rowCount(); ++row) {
        qsizetype lines = lineCount(cells(row));
        double height = double(lines) * m_body.lineHeight + points(rowPadding);
        if (y + height > m_bottom && y > m_top) {
            m_starts.push_back({row, 0});
            y = m_top;
        }
        for (qsizetype line = m_linesOfPage; lines > m_linesOfPage; line += m_linesOfPage) {
            m_starts.push_back({row, line});
            lines -= m_linesOfPage;
            height = double(lines) * m_body.lineHeight + points(rowPadding);
        }
        y += height;
    }
}

Sheet::Cells Sheet::cells(int row) const {
    Cells result;
    result.reserve(m_columns.size());
    for (std::size_t at = 0; at < m_columns.size(); ++at)
        result.push_back(m_body.wrapped(m_report.rows->text(row, m_report.columns[at].source), m_columns[at].width));
    return result;
}

void Sheet::drawLines(QPainter &painter, const Face &face, const Cells &cells, qsizetype from, double top) const {
    for (std::size_t at = 0; at < cells.size(); ++at) {
        const Column &column = m_columns[at];
        const qsizetype end = std::min(cells[at].size(), from + m_linesOfPage);
        double y = top;
        for (qsizetype line = from; line < end; ++line) {
            face.draw(painter, column.left, y, column.width, column.alignment, cells[at][line]);
            y += face.lineHeight;
        }
    }
}

void Sheet::drawRule(QPainter &painter, double y) const {
    painter.fillRect(QRectF(0, y, m_page.width(), points(rule)), Qt::black);
}

void Sheet::drawHeading(QPainter &painter) const {
    double y = 0;
    for (const QString &line : m_titleLines) {
        m_title.draw(painter, 0, y, m_page.width(), Qt::AlignHCenter, line);
        y += m_title.lineHeight;
    }
    drawLines(painter, m_head, m_heads, 0, y + points(gap));
    drawRule(painter, m_top - points(gap));
}

void Sheet::drawFooting(QPainter &painter, int page) const {
    drawRule(painter, m_bottom + points(gap));
    const double top = m_page.bottom() - m_body.lineHeight;
    const auto put = [&](Qt::Alignment alignment, const QString &text) {
        m_body.draw(painter, 0, top, m_page.width(), alignment, text);
    };
    put(Qt::AlignLeft, u"报表日期：" + m_report.date.toString(u"yyyy-MM-dd"_s));
    put(Qt::AlignHCenter, u"共" + QString::number(pages()) + u"页");
    put(Qt::AlignRight, u"第" + QString::number(page + 1) + u"页");
}

void Sheet::draw(QPainter &painter, int page) const {
    drawHeading(painter);
    const PageStart start = m_starts[std::size_t(page)];
    const bool last = page + 1 == pages();
    const PageStart end = last ? PageStart{rowCount(), 0} : m_starts[std::size_t(page) + 1];
    double y = m_top;
    for (int row = start.row; row < end.row || (row == end.row && end.line > 0); ++row) {
        const Cells lines = cells(row);
        const qsizetype from = row == start.row ? start.line : 0;
        drawLines(painter, m_body, lines, from, y);
        y += double(lineCount(lines) - from) * m_body.lineHeight + points(rowPadding);
    }
    drawFooting(painter, page);
}
} // namespace

QFont reportFont(double points, QFont::Weight weight) {
    QFont font = QApplication::font();
    const QStringList faces = platform::songFaces();
    const auto found = std::ranges::find_if(faces, [](const QString &face) { return QFontDatabase::hasFamily(face); });
    if (found != faces.end())
        font.setFamilies({*found});
    font.setPointSizeF(points);
    font.setWeight(weight);
    // Shaping swaps in glyphs that a PDF reader cannot take back to characters: a call number would lose its digits.
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

int print(const BandedReport &report, QPrinter &printer) {
    const Sheet sheet(report, printer);
    QPainter painter;
    if (!painter.begin(&printer))
        return 0;
    const int first = std::clamp(printer.fromPage(), 1, sheet.pages());
    const int last = printer.toPage() > 0 ? std::clamp(printer.toPage(), first, sheet.pages()) : sheet.pages();
    for (int page = first; page <= last; ++page) {
        if (page > first && !printer.newPage())
            return 0;
        sheet.draw(painter, page - 1);
    }
    return painter.end() ? sheet.pages() : 0;
}

QDialog *newReportPreview(BandedReport report, QWidget *parent) {
    // Both live as long as the window's connection does.
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(report.caption);
    printer->setPageMargins(margins, QPageLayout::Millimeter);
    auto *preview = new QPrintPreviewDialog(printer.get(), parent);
    preview->setObjectName(u"DataReportJs"_s);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->setWindowTitle(report.caption);
    preview->resize(previewSize.boundedTo(platform::roomOnScreen(preview)));
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, report = std::move(report)](QPrinter *target) { print(report, *target); });
    return preview;
}

} // namespace widgets
