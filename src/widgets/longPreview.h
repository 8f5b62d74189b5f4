// The print preview of a long report. It paints one page at a time, while Qt's own preview paints all pages first.
// Pages are counted and printed in portions between two runs of the event loop; closing the window or its stop button
// cancels either.
#pragma once

#include "platform/slicedWork.h"
#include "widgets/reportSheet.h"
#include <QDialog>
#include <functional>
#include <memory>
#include <optional>

class QAction;
class QLabel;
class QPrintPreviewWidget;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QToolBar;

namespace widgets {

class LongPreview final : public QDialog {
    Q_OBJECT
public:
    LongPreview(BandedReport report, std::shared_ptr<QPrinter> printer, QWidget *parent);

    // Prints the page range that the printer is set to.
    void startPrinting();

private:
    using Work = std::function<void()>;
    QAction *addTool(QStringView icon, QStringView name, Work work);
    void addViewTools();
    void addPageTools();
    void layOut();
    void showProgress(bool more);
    void placed();
    void printed();
    void beginWork(const QString &state, int all);
    void endWork(const QString &state = {});
    void stop();
    void choosePrinter();
    void setPage(const std::function<bool()> &change);

    BandedReport m_report;
    std::shared_ptr<QPrinter> m_printer;
    std::optional<ReportSheet> m_sheet;
    std::optional<ReportRun> m_run; // destroyed before the sheet
    platform::SlicedWork m_work;    // active while pages are counted or printed

    QToolBar *m_tools;
    QSpinBox *m_page;
    QLabel *m_pages;
    QPrintPreviewWidget *m_view;
    QLabel *m_state;
    QProgressBar *m_progress;
    QPushButton *m_stop;
};

} // namespace widgets
