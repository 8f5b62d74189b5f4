#include "handbook/windows/pagePrint.h"
#include "handbook/windows/pageLook.h"
#include "platform/desktop/screenSize.h"
#include "widgets/bandedReport.h"
#include "widgets/pdfText.h"
#include "widgets/printPreview.h"
#include "widgets/styleTokens.h"
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPaintEngine>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>
#include <memory>

using namespace Qt::StringLiterals;

namespace handbook {

namespace {

constexpr int paperWidth = 600; // of the text on A4, in layout pixels
constexpr double sharpness = 4; // picture pixels per layout pixel, at most
constexpr QSize previewSize(900, 700);
constexpr double points = 10.5;

QPalette paper() {
    QPalette colours = widgets::schemePalette(widgets::Scheme::Light);
    colours.setColor(QPalette::Link, colours.color(QPalette::Text));
    return colours;
}

// Makes copying and searching in the PDF return the characters that were printed.
void nameCharacters(const QTextDocument &document, const QPrinter &printer) {
    widgets::DrawnCharacters drawn;
    drawn.add(document.toPlainText());
    const QFont plain = document.defaultFont();
    QFont bold = plain;
    bold.setBold(true); // headings
    widgets::SameGlyph names;
    for (const QFont &font : {plain, bold, QFontDatabase::systemFont(QFontDatabase::FixedFont)})
        widgets::addSameGlyphs(names, drawn, font, &printer);
    (void)widgets::nameDrawnCharacters(printer.outputFileName(), names); // the PDF is usable without them
}

} // namespace

void printPage(const QString &path, QPrinter &printer) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QTextDocument document;
    document.setDefaultFont(widgets::reportFont(points));
    document.setMarkdown(QString::fromUtf8(file.readAll()));
    const QString folder = QFileInfo(path).path() + u'/';
    for (const QString &name : picturesIn(document))
        document.addResource(QTextDocument::ImageResource, QUrl(name),
                             fitted(QImage(folder + name), paperWidth, sharpness));
    dress(document, paper());
    document.print(&printer);
    const bool isPdf = printer.paintEngine()->type() == QPaintEngine::Pdf; // not in a preview
    if (isPdf && !printer.outputFileName().isEmpty())
        nameCharacters(document, printer);
}

QDialog *newPagePreview(const QString &path, const QString &title, QWidget *parent) {
    // Owned by the connection, which ends with the preview.
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(title);
    QPrintPreviewDialog *preview = widgets::newPrintPreview(*printer, parent);
    preview->setObjectName(u"handbookPrint"_s);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->setWindowTitle(title);
    preview->resize(previewSize.boundedTo(platform::usableScreenSize(preview)));
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, path](QPrinter *target) { printPage(path, *target); });
    return preview;
}

} // namespace handbook
