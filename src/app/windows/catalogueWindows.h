// Owns the windows on the catalogue and the store: two query dialogs, and what lives in the frame behind them. A list
// window is made when rows first come for it and ends when it is unloaded; the order that the sort dialog stored
// outlives it.
#pragma once

#include "app/windows/commands.h"
#include "catalogue/queryTarget.h"
#include "catalogue/windows/workingFrm.h"
#include "database/sublib.h"
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
    // What the list of the store leads to.
    struct Ways {
        std::function<QList<qint64>()> lastImport;
        std::function<void(const QString &marc, QWidget *owner)> showCard;
    };
    CatalogueWindows(platform::Host &host, const database::SessionState &state, Ways ways);

    // The area of the frame that the list windows live in.
    void setArea(QMdiArea *area) { m_area = area; }

    void queryCatalogue(const QueryLists &lists);
    void queryStore(const QueryLists &lists);
    // Before the process ends: an export in progress ends with its file closed, and what the lists look like is kept.
    void endRuns();

private:
    catalogue::ZSKListFrm *catalogueList();
    catalogue::TLKListFrm *storeList();
    void showDetail(qint32 zskid);
    void showOrderby();
    void hideWorking();
    QWidget *frame() const;
    // Puts the list window into the frame, at its upper left corner; it is gone for good once it is unloaded.
    template <class List>
    List *adopted(List *list);
    // Size and drawn columns of a list, as it was left the last time.
    void recallShape(QMdiSubWindow &place, catalogue::ListWindow &list) const;
    void keepShape(const QMdiSubWindow &place, const catalogue::ListWindow &list) const;
    void bringForward(QWidget *list);

    platform::Host &m_host;
    const database::SessionState &m_state;
    Ways m_ways;
    QMdiArea *m_area = nullptr;
    catalogue::CatalogueOrder m_order;
    QPointer<catalogue::ZSKListFrm> m_catalogueList;
    QPointer<catalogue::TLKListFrm> m_storeList;
    QPointer<catalogue::SCKListFrm> m_detail;
    QPointer<catalogue::OrderbyFrm> m_orderby;
    QPointer<catalogue::WorkingFrm> m_working;
};

} // namespace app
