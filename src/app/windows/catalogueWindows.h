// Owns the windows for the catalogue and the store: two query dialogs, and the list windows in the frame. A list window
// is created when it first gets rows and is deleted when it is unloaded. The order stored by the sort dialog outlives
// it.
#pragma once

#include "app/windows/commands.h"
#include "catalogue/queryBuilder.h"
#include "catalogue/queryTarget.h"
#include "catalogue/windows/workingFrm.h"
#include "database/sublib.h"
#include "marc/rawRecord.h"
#include "platform/host.h"
#include <QMdiArea>
#include <QPointer>
#include <functional>

namespace catalogue {
class ListWindow;
class OrderbyFrm;
class SCKListFrm;
class TLKListFrm;
class ZSKListFrm;
} // namespace catalogue

namespace app {

class CatalogueWindows {
public:
    // The functions that the store list calls.
    struct Ways {
        std::function<QList<qint64>()> lastImport;
        std::function<void(const QString &marc, const marc::RecordStep &step, QWidget *owner)> showCard;
    };
    CatalogueWindows(platform::Host &host, const database::SessionState &state, Ways ways);

    // The area of the frame for the list windows.
    void setArea(QMdiArea *area) { m_area = area; }

    void queryCatalogue(const QueryLists &lists);
    void queryStore(const QueryLists &lists);
    // Call before the process ends: ends a running export, whose file is closed, and a running save, which leaves no
    // file, and stores the layout of the lists.
    void endRuns();

private:
    catalogue::ZSKListFrm *catalogueList();
    catalogue::TLKListFrm *storeList();
    void showDetail(qint32 zskid);
    void showOrderby();
    void hideWorking();
    QWidget *frame() const;
    // Adds the list window to the frame, where it was closed last, or at the upper left corner. It is deleted when it
    // is unloaded.
    template <class List>
    List *adopted(List *list);
    // Restore and store the place, the size and the column widths of a list.
    void recallShape(QMdiSubWindow &place, catalogue::ListWindow &list) const;
    void keepShape(const QMdiSubWindow &place, const catalogue::ListWindow &list) const;
    void bringForward(QWidget *list);

    platform::Host &m_host;
    const database::SessionState &m_state;
    Ways m_ways;
    QMdiArea *m_area = nullptr;
    catalogue::CatalogueOrder m_order;
    catalogue::EnteredQuery m_lastCatalogueQuery; // offered again until the program ends
    catalogue::EnteredQuery m_lastStoreQuery;
    QPointer<catalogue::ZSKListFrm> m_catalogueList;
    QPointer<catalogue::TLKListFrm> m_storeList;
    QPointer<catalogue::SCKListFrm> m_detail;
    QPointer<catalogue::OrderbyFrm> m_orderby;
    QPointer<catalogue::WorkingFrm> m_working;
};

} // namespace app
