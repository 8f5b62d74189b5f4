// Chooses the order of the catalogue list without a new query. It applies to the single list window and stores the
// order for later queries without an order of their own. A stored order is shown again only if it has a single column.
#pragma once

#include "catalogue/queryTarget.h"
#include "platform/host.h"
#include "widgets/button.h"
#include "widgets/window.h"
#include <QListWidget>
#include <functional>

namespace catalogue {

class OrderbyFrm final : public widgets::Window {
    Q_OBJECT
public:
    // `list` returns the list window and creates it again if it was closed.
    OrderbyFrm(platform::Host &host, CatalogueOrder &order, std::function<SortableList &()> list,
               QWidget *parent = nullptr);

    QListWidget *List1;
    QListWidget *List2; // each entry stores its index in orderFields
    widgets::Button *CmdAdd;
    widgets::Button *CmdMove;
    widgets::Button *CmdAddAll;
    widgets::Button *CmdMoveAll;
    widgets::Button *cmdOK;
    widgets::Button *cmdCancel;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void layOut();
    void fillLists();
    void choose(int field);
    void add();
    void remove();
    void addAll();
    void removeAll();
    void takeOrder();

    platform::Host &m_host;
    CatalogueOrder &m_order;
    std::function<SortableList &()> m_list;
};

} // namespace catalogue
