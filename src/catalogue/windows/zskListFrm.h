// The catalogue list: shows the rows that a query selected, opens the details of a row, and sorts, prints and exports
// the rows. It keeps no connection open between actions. Closing it during an export ends the run after the current
// record and closes the window when the run has returned.
#pragma once

#include "catalogue/exportRun.h"
#include "catalogue/queryTarget.h"
#include "catalogue/windows/dataReportJs.h"
#include "catalogue/windows/listWindow.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include <array>
#include <functional>

namespace catalogue {

// The windows that the list opens without waiting for them.
struct CatalogueListWindows {
    std::function<void(qint32 zskid)> showDetail;
    std::function<void()> showOrderby;
    std::function<void(const DataReportJs &report)> showReport;
};

class ZSKListFrm final : public ListWindow, public SortableList, private ExportSurface {
    Q_OBJECT
public:
    ZSKListFrm(const database::SessionState &state, platform::Host &host, const CatalogueOrder &order,
               CatalogueListWindows windows, QWidget *parent = nullptr);

    void loadData(Condition &condition, QString &order) override;
    const Condition &queryCondition() const override { return m_queryCondition; }
    void PrintRpt(const QString &title);
    void gridFix() override;
    void daochuMarc();
    // Call before the process ends: a running export ends after the current record, with its file closed.
    void endRun();

    QLabel *lCounts;
    widgets::PacedLabel *labDaochu;
    std::array<widgets::Button *, 6> CmdDcgl;

protected:
    bool queryUnload() override;

private:
    void layOut();
    void connectControls();
    void showDetail();
    void sortBy(int column);
    void loadQueryByKey();

    int rowCount() const override { return Grid1->rows(); }
    QString key(int row) const override { return Grid1->text(row, 0); }
    void showProgress(const QString &text) override;
    bool stopPressed() const override;
    void goOn() override;

    const database::SessionState &m_state;
    platform::Host &m_host;
    const CatalogueOrder &m_order;
    CatalogueListWindows m_windows;
    Condition m_queryCondition; // as last passed to loadData()
    QString m_shownOrder;       // of the rows
    QString m_printSql;         // empty: nothing to print
    ExportRun *m_run = nullptr;
    bool m_closesAfterRun = false;
};

} // namespace catalogue
