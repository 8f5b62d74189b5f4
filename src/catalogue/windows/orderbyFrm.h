// Chooses the order of the catalogue list without a new query. It works on the one list window, stores the order for
// the later queries that name none, and shows a stored order again only where it is a single column.
#pragma once

#include "catalogue/queryTarget.h"
#include "platform/host.h"
#include "widgets/window.h"
#include <QListWidget>
#include <functional>

namespace catalogue {

class OrderbyFrm final : public widgets::Window {
    Q_OBJECT
public:
    // `list` gives the list window, which comes up anew where it was closed meanwhile.
    OrderbyFrm(platform::Host &host, CatalogueOrder &order, std::function<SortableList &()> list,
               QWidget *parent = nullptr);

    QListWidget *List1;
    QListWidget *List2; // each entry carries its index in orderFields
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
