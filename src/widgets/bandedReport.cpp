#include "widgets/bandedReport.h"
#include "platform/desktop/screenSize.h"
#include "widgets/longPreview.h"
#include "widgets/printPreview.h"
#include "widgets/reportSheet.h"
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {
constexpr QSize previewSize(900, 700);
const QMarginsF margins(15, 15, 15, 15); // millimetres, until the user changes them

// Qt's own preview, which paints all pages before it shows the first.
QDialog *newWholePreview(BandedReport report, const std::shared_ptr<QPrinter> &printer, QWidget *parent) {
    QPrintPreviewDialog *preview = newPrintPreview(*printer, parent);
    // The connection keeps the printer and the report alive as long as the preview.
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, report = std::move(report)](QPrinter *target) { print(report, *target); });
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
    constexpr int quicklyShown = 5000; // rows; above this, painting all pages at once is too slow
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
