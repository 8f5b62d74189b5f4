#include "app/windows/catalogueWindows.h"
#include "catalogue/windows/orderbyFrm.h"
#include "catalogue/windows/queryFrm.h"
#include "catalogue/windows/sckListFrm.h"
#include "catalogue/windows/tlkListFrm.h"
#include "catalogue/windows/zskListFrm.h"
#include "widgets/remembered.h"
#include <QMdiSubWindow>
#include <algorithm>
#include <utility>

namespace app {

namespace kept = platform::kept;

namespace {

// The target of a query whose list window is created only when the query passes its result.
template <class Show>
class LateTarget final : public catalogue::QueryTarget {
public:
    explicit LateTarget(Show show)
        : m_show(std::move(show)) {}
    void loadData(catalogue::Condition &condition, QString &order) override { m_show()->loadData(condition, order); }

private:
    Show m_show;
};

template <class Dialog>
void runQuery(platform::Host &host, QWidget *frame, const QueryLists &lists, catalogue::QueryTarget &target,
              catalogue::EnteredQuery &last) {
    Dialog dialog(host, frame);
    dialog.offerLast(last);
    dialog.resultForm = &target;
    dialog.LoadCombo(lists.columns.toString(), lists.labels.toString(), lists.kinds.toString());
    dialog.exec();
}

} // namespace

CatalogueWindows::CatalogueWindows(platform::Host &host, const database::SessionState &state, Ways ways)
    : m_host(host)
    , m_state(state)
    , m_ways(std::move(ways)) {}

QWidget *CatalogueWindows::frame() const {
    return m_area ? m_area->window() : nullptr;
}

template <class List>
List *CatalogueWindows::adopted(List *list) {
    QMdiSubWindow *place = m_area->addSubWindow(list);
    place->setFocusPolicy(Qt::ClickFocus); // Tab goes to the controls of the list
    // The sub-window is deleted however the list is closed, but only after the current close event.
    QObject::connect(list, &widgets::Window::unloaded, place, [this, place, list] {
        keepShape(*place, *list);
        place->hide();
        place->deleteLater();
    });
    recallShape(*place, *list);
    return list;
}

void CatalogueWindows::recallShape(QMdiSubWindow &place, catalogue::ListWindow &list) const {
    const platform::DeskState &state = m_host.remembered();
    const QSize kept = state.value(kept::listSize, list.objectName());
    const QSize room = m_area->viewport()->size();
    place.resize((kept.isValid() ? kept : place.sizeHint()).boundedTo(room));
    const QPoint wanted = state.value(kept::listPosition, list.objectName()); // the corner at the first time
    place.move(std::clamp(wanted.x(), 0, std::max(room.width() - place.width(), 0)),
               std::clamp(wanted.y(), 0, std::max(room.height() - place.height(), 0)));
    list.show();
    if (state.value(kept::listMaximised, list.objectName()))
        place.showMaximized();
    widgets::recallColumns(*list.Grid1, state, list.objectName());
}

void CatalogueWindows::keepShape(const QMdiSubWindow &place, const catalogue::ListWindow &list) const {
    const platform::DeskState &state = m_host.remembered();
    if (!place.isMinimized())
        state.keep(kept::listMaximised, list.objectName(), place.isMaximized());
    if (!place.isMinimized() && !place.isMaximized()) {
        state.keep(kept::listSize, list.objectName(), place.size());
        state.keep(kept::listPosition, list.objectName(), place.pos());
    }
    widgets::keepColumns(*list.Grid1, state, list.objectName());
}

void CatalogueWindows::bringForward(QWidget *list) {
    if (auto *place = qobject_cast<QMdiSubWindow *>(list->parentWidget()))
        m_area->setActiveSubWindow(place);
}

void CatalogueWindows::queryCatalogue(const QueryLists &lists) {
    LateTarget target([this] { return catalogueList(); });
    runQuery<catalogue::QueryFrm>(m_host, frame(), lists, target, m_lastCatalogueQuery);
}

void CatalogueWindows::queryStore(const QueryLists &lists) {
    LateTarget target([this] { return storeList(); });
    runQuery<catalogue::QueryFrmdel>(m_host, frame(), lists, target, m_lastStoreQuery);
}

void CatalogueWindows::endRuns() {
    if (m_catalogueList)
        m_catalogueList->endRun();
    if (m_storeList)
        m_storeList->endRun();
    for (const QMdiSubWindow *place : m_area ? m_area->subWindowList() : QList<QMdiSubWindow *>())
        if (const auto *list = qobject_cast<catalogue::ListWindow *>(place->widget()))
            keepShape(*place, *list);
}

catalogue::ZSKListFrm *CatalogueWindows::catalogueList() {
    if (!m_catalogueList) {
        m_catalogueList = adopted(new catalogue::ZSKListFrm(m_state, m_host, m_order,
                                                            {.showDetail = [this](qint32 zskid) { showDetail(zskid); },
                                                             .showOrderby = [this] { showOrderby(); },
                                                             .showReport =
                                                                 [this](const catalogue::DataReportJs &report) {
                                                                     widgets::newReportPreview(report, frame())->show();
                                                                 }}));
    }
    bringForward(m_catalogueList);
    return m_catalogueList;
}

catalogue::TLKListFrm *CatalogueWindows::storeList() {
    if (!m_storeList)
        m_storeList = adopted(new catalogue::TLKListFrm(
            m_state, m_host,
            {.hideWorking = [this] { hideWorking(); },
             .lastImport = m_ways.lastImport,
             .showCard = [this](const QString &marc,
                                const marc::RecordStep &step) { m_ways.showCard(marc, step, frame()); }}));
    bringForward(m_storeList);
    return m_storeList;
}

void CatalogueWindows::showDetail(qint32 zskid) {
    if (!m_detail)
        m_detail = adopted(new catalogue::SCKListFrm(m_state, m_host));
    bringForward(m_detail);
    m_detail->InfoLoad(zskid);
}

void CatalogueWindows::showOrderby() {
    if (!m_orderby) {
        m_orderby = new catalogue::OrderbyFrm(
            m_host, m_order, [this]() -> catalogue::SortableList & { return *catalogueList(); }, frame());
        m_orderby->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_orderby->show();
    m_orderby->raise();
    m_orderby->activateWindow();
}

void CatalogueWindows::hideWorking() {
    if (!m_working)
        m_working = new catalogue::WorkingFrm(frame());
    m_working->hide();
}

} // namespace app
