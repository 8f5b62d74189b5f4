#include "batch/windows/reportPrint.h"
#include "batch/reportPage.h"
#include "batch/windows/chartObject.h"
#include "batch/windows/ruleChart.h"
#include "platform/byteFile.h"
#include "platform/desktop/screenSize.h"
#include "platform/host.h"
#include "widgets/pdfText.h"
#include "widgets/printPreview.h"
#include "widgets/reportFace.h"
#include "widgets/styleTokens.h"
#include <QApplication>
#include <QBuffer>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using widgets::Colour;

namespace batch {

namespace {

constexpr double points = 10;
constexpr QSize previewSize(900, 700);
// None, or those of the printer: QTextDocument adds two centimetres on each side.
const QMarginsF margins;
constexpr qsizetype numbersOnPaper = 24; // of a rule
constexpr int paperWidth = 620;          // of the chart, in layout pixels
constexpr QStringView printedChart = u"chart";

QString nameOf(Colour colour) {
    return widgets::colour(colour, widgets::schemePalette(widgets::Scheme::Light)).name();
}

// Returns the font of charts in files, in pixels, so that the picture is the same at every resolution of the screen.
QFont chartFont(QFont font) {
    constexpr int pixels = 14;
    font.setPixelSize(pixels);
    return font;
}

PageDress dressOf(const BatchReport &report) {
    PageDress dress{.ink = nameOf(Colour::Ink),
                    .secondInk = nameOf(Colour::SecondInk),
                    .hairline = nameOf(Colour::Hairline),
                    .tint = nameOf(Colour::Window),
                    .levels = {nameOf(Colour::ErrorInk), nameOf(Colour::WarningInk), nameOf(Colour::Ink)}};
    if (!report.rules.empty())
        dress.chartWidth = paperWidth;
    return dress;
}

PageDress paperDress(const BatchReport &report) {
    PageDress dress = dressOf(report);
    dress.ink = dress.secondInk = QColor(Qt::black).name();
    dress.levels = {dress.ink, dress.ink, dress.ink};
    dress.chart = report.rules.empty() ? QString() : printedChart.toString();
    dress.mostNumbers = numbersOnPaper;
    return dress;
}

// The document of the report, black on white.
struct PrintedReport {
    PrintedReport(const BatchReport &report, const RecordDraw &draw);

    QTextDocument document;
    std::optional<ChartObject> chart; // destroyed before the document
};

PrintedReport::PrintedReport(const BatchReport &report, const RecordDraw &draw) {
    document.setDefaultFont(widgets::reportFont(points));
    document.setHtml(reportPage(report, draw, paperDress(report)));
    if (!report.rules.empty())
        chart.emplace(document, report, chartFont(document.defaultFont()), paperWidth);
}

// Makes copying and searching in the PDF return the characters that were printed.
void nameCharacters(const QString &path, const QTextDocument &document, const QPaintDevice &device) {
    widgets::DrawnCharacters drawn;
    drawn.add(document.toPlainText());
    widgets::SameGlyph names;
    for (const QFont::Weight weight : {QFont::Normal, QFont::Bold})
        widgets::addSameGlyphs(names, drawn, widgets::reportFont(points, weight), &device);
    (void)widgets::nameDrawnCharacters(path, names); // the PDF is usable without them
}

} // namespace

QDialog *newBatchReportPreview(const BatchReport &report, const RecordDraw &draw, QWidget *parent) {
    const auto printed = std::make_shared<PrintedReport>(report, draw);
    // Both are owned by the connection, which ends with the preview.
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(u"校对报告"_s);
    printer->setPageMargins(margins, QPageLayout::Millimeter);
    QPrintPreviewDialog *preview = widgets::newPrintPreview(*printer, parent);
    preview->setObjectName(u"batchReportPrint"_s);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->setWindowTitle(u"打印校对报告"_s);
    preview->resize(previewSize.boundedTo(platform::usableScreenSize(preview)));
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, printed](QPrinter *target) { printed->document.print(target); });
    return preview;
}

platform::Status saveReportPdf(const QString &path, const BatchReport &report, const RecordDraw &draw) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(u"校对报告："_s + fileNameOf(report));
    writer.setCreator(platform::programTitle.toString());
    writer.setPageMargins(margins, QPageLayout::Millimeter);
    const PrintedReport printed(report, draw);
    printed.document.print(&writer);
    const platform::Status saved = platform::writeWholeFile(path, bytes);
    if (saved)
        nameCharacters(path, printed.document, writer);
    return saved;
}

platform::Status saveReportPage(const QString &path, const BatchReport &report, const RecordDraw &draw) {
    PageDress dress = dressOf(report);
    dress.font = u"sans-serif"_s;
    if (!report.rules.empty()) {
        const ChartInk ink = schemeInk(widgets::schemePalette(widgets::Scheme::Light));
        dress.chart = chartAddress(report, ink, chartFont(QApplication::font()));
    }
    return platform::writeWholeFile(path, reportPage(report, draw, dress).toUtf8());
}

} // namespace batch
