// The report about the last proof of all records: numbers and chart, the table by rule, and some records drawn by lot.
// Prints it and saves it as PDF, web page or table. The report is made in slices after the window is shown.
#pragma once

#include "batch/batchReport.h"
#include "batch/recordDraw.h"
#include "platform/host.h"
#include "platform/slicedWork.h"
#include "widgets/button.h"
#include "widgets/flexGrid.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <optional>

class QLabel;
class QSpinBox;
class QTabWidget;

namespace batch {

class frmBatchReport final : public widgets::Window {
    Q_OBJECT
public:
    // Both must outlive the window and not change while it is open.
    struct Source {
        const marc::PreReadStore &records;
        const RemarkList &remarks;
    };
    frmBatchReport(platform::Host &host, const Source &source, ProofFacts facts, QWidget *parent = nullptr);
    ~frmBatchReport() override;

    QLabel *facts; // file, time, number of records
    QTabWidget *pages;
    std::array<QLabel *, schema::levelCount + 1> figures; // by gravest level, and without a remark
    QLabel *notes;                                        // about what the numbers do not include; hidden if empty
    QWidget *chart;
    widgets::FlexGrid *rulesGrid;
    QLabel *example; // of the current row
    QSpinBox *seedBox;
    widgets::Button *againButton;
    widgets::FlexGrid *drawGrid;
    widgets::PacedLabel *state;
    std::array<widgets::Button *, 4> saveButtons; // print, PDF, web page, table; disabled until the report is made
    widgets::Button *closeButton;

    const std::optional<BatchReport> &report() const { return m_report; } // std::nullopt until it is made

Q_SIGNALS:
    void recordWanted(int record); // by Enter or a double click on a drawn record; the window closes

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *overview();
    QWidget *byRule();
    QWidget *drawn();
    void layOut();
    void connectControls();
    void showProgress(bool more);
    void showReport();
    void showChart();
    void showRules();
    void showExample();
    void draw();
    void wantRecord();
    void print();
    using Write = std::function<platform::Status(const QString &path)>;
    void save(QStringView caption, QStringView filter, QStringView suffix, const Write &write);

    platform::Host &m_host;
    Source m_source;
    ReportWork m_making;
    platform::SlicedWork m_work;
    std::optional<BatchReport> m_report;
    RecordDraw m_draw;
    std::vector<int> m_drawnRecords; // of each row of drawGrid
};

} // namespace batch
