#include "handbook/windows/pagePrint.h"
#include "handbook/windows/pageLook.h"
#include "platform/desktop/screenRoom.h"
#include "widgets/bandedReport.h"
#include <QFile>
#include <QFileInfo>
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
    QPalette colours(Qt::black, Qt::white, Qt::lightGray, Qt::darkGray, Qt::gray, Qt::black, Qt::white);
    colours.setColor(QPalette::Base, Qt::white);
    colours.setColor(QPalette::Text, Qt::black);
    colours.setColor(QPalette::AlternateBase, QColor(0xee, 0xee, 0xee));
    colours.setColor(QPalette::Link, Qt::black);
    return colours;
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
}

QDialog *newPagePreview(const QString &path, const QString &title, QWidget *parent) {
    // Owned by the connection, which ends with the preview.
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(title);
    auto *preview = new QPrintPreviewDialog(printer.get(), parent);
    preview->setObjectName(u"handbookPrint"_s);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->setWindowTitle(title);
    preview->resize(previewSize.boundedTo(platform::roomOnScreen(preview)));
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, path](QPrinter *target) { printPage(path, *target); });
    return preview;
}

} // namespace handbook
