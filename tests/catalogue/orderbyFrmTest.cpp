// The sort dialog of a list window.
#include "catalogue/windows/orderbyFrm.h"
#include "support/scriptedHost.h"

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
    OrderbyFrmTest() {
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
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
    QTest::mouseClick(dialog.CmdAddAll, Qt::LeftButton);
    EXPECT_EQ(dialog.List2->count(), 6);
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
