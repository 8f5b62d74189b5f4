// The catalogue list: the rows that a query selected, from which the details of a row are opened and the rows are
// sorted anew, printed and exported. No connection is held between its procedures. Closed in mid-export, it ends the
// run behind the record in hand, and itself once the run has come back.
#pragma once

#include "catalogue/exportRun.h"
#include "catalogue/queryTarget.h"
#include "catalogue/windows/dataReportJs.h"
#include "catalogue/windows/listWindow.h"
#include "widgets/pacedLabel.h"
#include <array>
#include <functional>

namespace catalogue {

// What the list opens, none of it waited for.
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
    // Before the process ends: a run in progress ends behind the record in hand, with its file closed.
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
    Condition m_queryCondition; // the last that was handed over
    QString m_printSql;         // empty when there is nothing to print
    ExportRun *m_run = nullptr;
    bool m_closesAfterRun = false;
};

} // namespace catalogue
