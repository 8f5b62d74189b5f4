#include "catalogue/windows/orderbyFrm.h"
#include "catalogue/sortOrder.h"
#include "widgets/layout.h"
#include "widgets/waitCursor.h"
#include <QKeyEvent>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::column;
using widgets::named;
using widgets::row;
using widgets::stretch;

namespace catalogue {

OrderbyFrm::OrderbyFrm(platform::Host &host, CatalogueOrder &order, std::function<SortableList &()> list,
                       QWidget *parent)
    : Window(u"OrderbyFrm"_s, u"排序方式"_s, parent)
    , List1(named(new QListWidget(this), u"List1"_s, u"可选的项目"_s))
    , List2(named(new QListWidget(this), u"List2"_s, u"排序的项目"_s))
    , CmdAdd(new Button(u"CmdAdd"_s, u">> 增加"_s, this))
    , CmdMove(new Button(u"CmdMove"_s, u"<< 移除"_s, this))
    , CmdAddAll(new Button(u"CmdAddAll"_s, u">| 全部"_s, this))
    , CmdMoveAll(new Button(u"CmdMoveAll"_s, u"|< 清空"_s, this))
    , cmdOK(new Button(u"cmdOK"_s, u"&O 确定"_s, this))
    , cmdCancel(new Button(u"cmdCancel"_s, u"&C 取消"_s, this))
    , m_host(host)
    , m_order(order)
    , m_list(std::move(list)) {
    cmdOK->markPrimary();
    layOut();
    fillLists();
    connect(CmdAdd, &Button::clicked, this, &OrderbyFrm::add);
    connect(CmdMove, &Button::clicked, this, &OrderbyFrm::remove);
    connect(CmdAddAll, &Button::clicked, this, &OrderbyFrm::addAll);
    connect(CmdMoveAll, &Button::clicked, this, &OrderbyFrm::removeAll);
    connect(cmdOK, &Button::clicked, this, &OrderbyFrm::takeOrder);
    connect(cmdCancel, &Button::clicked, this, &OrderbyFrm::unload);
    connect(List1, &QListWidget::itemDoubleClicked, this, &OrderbyFrm::add);
    connect(List2, &QListWidget::itemDoubleClicked, this, &OrderbyFrm::remove);
}

void OrderbyFrm::layOut() {
    widgets::hint({{List1, u"回车或双击：加入排序"}, {List2, u"先按第一项排；回车或双击：移除"}});
    for (QListWidget *list : {List1, List2})
        list->installEventFilter(this);
    setLayout(column(
        {{row({{List1, 1}, column({stretch(), CmdAdd, CmdMove, CmdAddAll, CmdMoveAll, stretch()}), {List2, 1}}), 1},
         row({stretch(), cmdOK, cmdCancel})}));
}

void OrderbyFrm::fillLists() {
    for (const OrderField &field : orderFields)
        List1->addItem(field.label.toString());
    for (const int field : chosenOf(m_order.sortOrder))
        choose(field);
}

void OrderbyFrm::choose(int field) {
    auto *item = new QListWidgetItem(orderFields[size_t(field)].label.toString(), List2);
    item->setData(Qt::UserRole, field);
}

bool OrderbyFrm::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (watched == List1)
                add();
            else
                remove();
            return true;
        }
    }
    return Window::eventFilter(watched, event);
}

void OrderbyFrm::add() {
    const QList<QListWidgetItem *> selected = List1->selectedItems();
    if (selected.isEmpty())
        return;
    if (List2->findItems(selected[0]->text(), Qt::MatchExactly).isEmpty())
        choose(List1->row(selected[0]));
    else
        List1->setFocus();
}

void OrderbyFrm::remove() {
    for (const QListWidgetItem *selected : List2->selectedItems())
        delete selected;
    List2->setFocus();
}

void OrderbyFrm::addAll() {
    List2->clear();
    for (int field = 0; field < List1->count(); ++field)
        choose(field);
    List2->setFocus();
}

void OrderbyFrm::removeAll() {
    List2->clear();
    List1->setFocus();
}

void OrderbyFrm::takeOrder() {
    QList<int> chosen;
    for (int i = 0; i < List2->count(); ++i)
        chosen.append(List2->item(i)->data(Qt::UserRole).toInt());
    if (chosen.isEmpty()) {
        m_host.tell(u"请输入排序条件，取消该操作。"_s, platform::hintTitle, platform::Icon::Critical);
        return;
    }
    m_order.sortOrder = orderText(chosen);
    SortableList &list = m_list();
    Condition condition = list.queryCondition();
    QString order = m_order.sortOrder;
    {
        const widgets::WaitCursor waiting;
        list.loadData(condition, order);
    }
    unload();
}

} // namespace catalogue
