// How the windows of the catalogue open each other.
#include "app/windows/catalogueWindows.h"
#include "catalogue/windows/orderbyFrm.h"
#include "catalogue/windows/queryFrm.h"
#include "catalogue/windows/sckListFrm.h"
#include "catalogue/windows/tlkListFrm.h"
#include "catalogue/windows/zskListFrm.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"
#include "widgets/maskedEdit.h"

using namespace app;

class CatalogueWindowsTest : public testing::Test {
protected:
    CatalogueWindowsTest() {
        database.run(u"insert into zsk (zskid,bookname) values (1,'b'),(2,'a');"_s);
        frame.setCentralWidget(new QMdiArea);
        frame.resize(1600, 900);
        frame.show();
        windows.setArea(frame.findChild<QMdiArea *>());
    }
    catalogue::ZSKListFrm *list() { return frame.findChild<catalogue::ZSKListFrm *>(); }
    QWidget *place() { return list()->parentWidget(); }
    void query() {
        QTimer::singleShot(0, [] {
            if (auto *dialog = qobject_cast<catalogue::QueryFrm *>(QApplication::activeModalWidget())) {
                EXPECT_EQ(dialog->cSql->count(), 8);
                dialog->findData();
            }
        });
        windows.queryCatalogue(catalogueQuery);
        EXPECT_EQ(inFront(), u"catalogue::ZSKListFrm"_s);
    }
    QString inFront() const {
        const QMdiSubWindow *front = frame.findChild<QMdiArea *>()->activeSubWindow();
        return front ? QString::fromLatin1(front->widget()->metaObject()->className()) : QString();
    }
    void closeList() {
        const QPointer<QWidget> closed = place();
        list()->CmdDcgl[5]->click();
        EXPECT_FALSE(closed->isVisible()) << "at once, although it is deleted later";
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TestDatabase database;
    ScriptedHost host;
    QMainWindow frame;
    CatalogueWindows windows{host, database.state, {}};
};

TEST_F(CatalogueWindowsTest, AListReopensAsItWasClosed) {
    query();
    const QSize first = place()->size();
    const QSize drawn = first - QSize(150, 90);
    EXPECT_EQ(place()->pos(), QPoint());
    place()->resize(drawn);
    place()->move(30, 20);
    list()->Grid1->setColumnWidth(4, 222);
    closeList();
    query();
    EXPECT_EQ(place()->geometry(), QRect(QPoint(30, 20), drawn));
    EXPECT_EQ(list()->Grid1->columnWidth(4), 222);
    place()->showMinimized();
    closeList(); // keeps the size that it had before
    query();
    EXPECT_EQ(place()->geometry(), QRect(QPoint(30, 20), drawn));
    place()->showMaximized();
    windows.endRuns(); // the program ends while a list is open
    closeList();
    frame.resize(drawn); // a smaller screen than before
    query();
    EXPECT_TRUE(place()->isMaximized());
    place()->showNormal();
    const QRect room = frame.findChild<QMdiArea *>()->viewport()->rect();
    EXPECT_TRUE(room.contains(place()->geometry())) << place()->width() << " in " << room.width();
}

TEST_F(CatalogueWindowsTest, ABookShowsItsDetailInOneWindow) {
    query();
    for (int time = 0; time < 2; ++time) {
        list()->Grid1->setRow(1 + time);
        Q_EMIT list()->Grid1->gridActivated();
        ASSERT_EQ(frame.findChildren<catalogue::SCKListFrm *>().size(), 1);
        const auto *detail = frame.findChild<catalogue::SCKListFrm *>();
        EXPECT_TRUE(std::ranges::any_of(
            detail->LabelZSK, [&](const QLabel *label) { return label->text() == list()->Grid1->text(1 + time, 2); }));
        auto *front = frame.findChild<QMdiArea *>()->activeSubWindow();
        EXPECT_TRUE(front && qobject_cast<catalogue::SCKListFrm *>(front->widget()));
        frame.findChild<QMdiArea *>()->setActiveSubWindow(qobject_cast<QMdiSubWindow *>(place()));
    }
    EXPECT_TRUE(host.boxes.isEmpty());
}

TEST_F(CatalogueWindowsTest, TheSortDialogReopensAClosedList) {
    query();
    query();
    ASSERT_EQ(frame.findChildren<catalogue::ZSKListFrm *>().size(), 1); // every query uses the same window
    EXPECT_EQ(list()->Grid1->text(1, 2), u"b"_s);
    catalogue::Condition condition{u"bookname='b'"_s, {}};
    QString order;
    list()->loadData(condition, order);

    list()->CmdDcgl[1]->click(); // the sort button
    auto *sorting = frame.findChild<catalogue::OrderbyFrm *>();
    ASSERT_TRUE(sorting && sorting->isVisible());
    frame.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    list()->CmdDcgl[1]->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return sorting->isActiveWindow(); })) << "the same dialog, in front again";
    EXPECT_EQ(frame.findChildren<catalogue::OrderbyFrm *>().size(), 1);
    closeList();
    ASSERT_FALSE(list());
    sorting->List1->setCurrentRow(0);
    sorting->CmdAdd->click();
    const QPointer<QWidget> closed = sorting;
    sorting->cmdOK->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(closed);
    ASSERT_TRUE(list());
    EXPECT_TRUE(list()->isVisible());
    EXPECT_EQ(list()->Grid1->text(1, 2) + list()->Grid1->text(2, 2), u"ab"_s); // sorted, without the condition
    EXPECT_TRUE(host.boxes.isEmpty());
}

TEST_F(CatalogueWindowsTest, AQueryBringsItsListForward) {
    const auto queryStore = [this] {
        QTimer::singleShot(0, [] {
            if (auto *dialog = qobject_cast<catalogue::QueryFrmdel *>(QApplication::activeModalWidget()))
                dialog->findData();
        });
        windows.queryStore(storeQuery);
        return inFront();
    };
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(queryStore(), u"catalogue::TLKListFrm"_s);
        query();
    }
    EXPECT_EQ(frame.findChildren<catalogue::TLKListFrm *>().size(), 1);
}
