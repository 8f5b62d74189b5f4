// The sort dialog of a list window.
#include "catalogue/windows/orderbyFrm.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"

using namespace catalogue;

namespace {

struct List final : SortableList {
    void loadData(Condition &condition, QString &order) override {
        received.append({condition.sql, condition.words, order});
    }
    const Condition &queryCondition() const override { return condition; }
    Condition condition{u"author='a'"_s, u"著者'等于'a"_s};
    QList<QStringList> received;
};

class OrderbyFrmTest : public testing::Test {
protected:
    OrderbyFrmTest() { showActive(dialog); }
    QStringList chosen(const OrderbyFrm &of) {
        QStringList result;
        for (int i = 0; i < of.List2->count(); ++i)
            result.append(of.List2->item(i)->text());
        return result;
    }
    ScriptedHost host;
    CatalogueOrder order;
    List list;
    const std::function<SortableList &()> theList = [this]() -> SortableList & { return list; };
    OrderbyFrm dialog{host, order, theList};
};

TEST_F(OrderbyFrmTest, RefusesAnEmptyChoiceAndCancelsWithoutATrace) {
    for (int time = 0; time < 2; ++time) {
        QTest::mouseClick(dialog.CmdAddAll, Qt::LeftButton);
        EXPECT_EQ(dialog.List2->count(), 6);
    }
    dialog.List2->setCurrentRow(5);
    QTest::mouseClick(dialog.CmdMove, Qt::LeftButton);
    const QPoint first = dialog.List2->visualItemRect(dialog.List2->item(0)).center();
    QTest::mouseClick(dialog.List2->viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(dialog.List2->viewport(), Qt::LeftButton, {}, first);
    EXPECT_EQ(chosen(dialog).join(u' '), u"著者 ISBN 分类号 出版社"_s);
    QTest::mouseClick(dialog.CmdMoveAll, Qt::LeftButton);
    EXPECT_TRUE(dialog.List1->hasFocus());
    QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
    EXPECT_EQ(host.texts(), QStringList{u"请输入排序条件，取消该操作。"_s});
    EXPECT_TRUE(dialog.isVisible());
    QTest::mouseClick(dialog.CmdAddAll, Qt::LeftButton);
    QTest::mouseClick(dialog.cmdCancel, Qt::LeftButton);
    EXPECT_TRUE(!dialog.isVisible() && order.sortOrder.isEmpty() && list.received.isEmpty());
}

TEST_F(OrderbyFrmTest, EverythingByKeyboard) {
    const std::tuple<QListWidget *, int, Qt::Key, QString, QWidget *> steps[] = {
        {dialog.List1, 0, Qt::Key_Return, u"书名"_s, dialog.List1},
        {dialog.List1, 0, Qt::Key_Return, u"书名"_s, dialog.List1}, // already listed
        {dialog.List1, 2, Qt::Key_Enter, u"书名 ISBN"_s, dialog.List1},
        {dialog.List1, 2, Qt::Key_End, u"书名 ISBN"_s, dialog.List1}, // a key of the list itself
        {dialog.List1, 5, Qt::Key_Return, u"书名 ISBN 入库日期"_s, dialog.List1},
        {dialog.List2, 1, Qt::Key_Return, u"书名 入库日期"_s, dialog.List2},
        {dialog.List2, 0, Qt::Key_Enter, u"入库日期"_s, dialog.List2},
    };
    for (const auto &[where, row, key, order, focus] : steps) {
        where->setFocus();
        where->setCurrentRow(row);
        QTest::keyClick(where, key);
        EXPECT_EQ(chosen(dialog).join(u' '), order);
        EXPECT_TRUE(focus->hasFocus() && dialog.isVisible());
    }
    EXPECT_EQ(dialog.List1->currentRow(), 5);
    for (const auto &[button, focus] : {std::pair(dialog.CmdAddAll, dialog.List2), {dialog.CmdMoveAll, dialog.List1}}) {
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_TRUE(focus->hasFocus());
    }
    dialog.List2->clearSelection();
    QTest::mouseClick(dialog.CmdMove, Qt::LeftButton);
    EXPECT_TRUE(dialog.List2->hasFocus());
    EXPECT_EQ(WindowState(dialog).grown({200, 200}), u"List1 wh; List2 wh"_s);
    EXPECT_TRUE(dialog.cmdOK->property("primary").toBool());
    dialog.CmdAddAll->click();
    dialog.cmdOK->click();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(OrderbyFrmTest, ShowsAnOrderOfOneColumnAgain) {
    order.sortOrder = u"ISBN"_s;
    OrderbyFrm next(host, order, theList);
    EXPECT_EQ(chosen(next), QStringList{u"ISBN"_s});
    next.List1->setCurrentRow(5);
    next.CmdAdd->click();
    next.CmdAdd->click(); // the column is already listed
    next.cmdOK->click();
    EXPECT_EQ(order.sortOrder, u"ISBN,catatime"_s);
    EXPECT_EQ(list.received, (QList<QStringList>{{u"author='a'"_s, u"著者'等于'a"_s, u"ISBN,catatime"_s}}));
    EXPECT_TRUE(chosen(OrderbyFrm(host, order, theList)).isEmpty());
}

} // namespace
