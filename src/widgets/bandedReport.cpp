#include "widgets/bandedReport.h"
#include "platform/desktop/screenSize.h"
#include "widgets/lineIcon.h"
#include "widgets/longPreview.h"
#include "widgets/reportSheet.h"
#include <QAction>
#include <QCoreApplication>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QToolBar>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {
constexpr QSize previewSize(900, 700);
const QMarginsF margins(15, 15, 15, 15); // millimetres, until the user changes them

// In the order of the tool bar of Qt's own preview.
constexpr auto toolIcons =
    std::to_array<QStringView>({u"zoom-fit-width", u"zoom-fit-page", u"zoom-out", u"zoom-in", u"layout-portrait",
                                u"layout-landscape", u"go-first", u"go-previous", u"go-next", u"go-last",
                                u"view-page-one", u"view-page-sided", u"view-page-multi", u"page-setup", u"printer"});

// Gives the tools of the preview the icons of the program.
void dressTools(const QPrintPreviewDialog &preview) {
    const auto *bar = preview.findChild<QToolBar *>();
    auto icon = toolIcons.begin();
    for (QAction *tool : bar ? bar->actions() : QList<QAction *>())
        if (!tool->icon().isNull() && icon != toolIcons.end())
            tool->setIcon(lineIcon((icon++)->toString()));
}

// Qt's own preview, which paints all pages before it shows the first.
QDialog *newWholePreview(BandedReport report, const std::shared_ptr<QPrinter> &printer, QWidget *parent) {
    auto *preview = new QPrintPreviewDialog(printer.get(), parent);
    dressTools(*preview);
    // The connection keeps the printer and the report alive as long as the preview.
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, report = std::move(report)](QPrinter *target) { print(report, *target); });
    const QString printing = QCoreApplication::translate("QPrintPreviewDialog", "Print");
    for (QAction *action : preview->findChildren<QAction *>())
        if (action->text() == printing)
            action->setShortcut(QKeySequence::Print);
    return preview;
}
} // namespace

int print(const BandedReport &report, QPrinter &printer) {
    ReportSheet sheet(report, printer);
    while (sheet.place(std::numeric_limits<int>::max())) {
    }
    ReportRun run(sheet, printer);
    while (run.step()) {
    }
    return run.failed() ? 0 : sheet.pages();
}

QDialog *newReportPreview(BandedReport report, QWidget *parent) {
    constexpr int quicklyShown = 5000; // rows; above that, painting all pages at once is too slow
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(report.caption);
    printer->setPageMargins(margins, QPageLayout::Millimeter);
    const QString caption = report.caption;
    const bool isLong = report.rows && report.rows->rowCount() > quicklyShown;
    QDialog *preview = isLong ? new LongPreview(std::move(report), printer, parent)
                              : newWholePreview(std::move(report), printer, parent);
    preview->setObjectName(u"DataReportJs"_s);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->setWindowTitle(caption);
    preview->resize(previewSize.boundedTo(platform::usableScreenSize(preview)));
    return preview;
}

} // namespace widgets
