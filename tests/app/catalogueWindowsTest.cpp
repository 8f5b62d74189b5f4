// How the windows on the catalogue lead to each other.
#include "app/windows/catalogueWindows.h"
#include "catalogue/windows/orderbyFrm.h"
#include "catalogue/windows/queryFrm.h"
#include "catalogue/windows/zskListFrm.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include <QMainWindow>
#include <QTimer>

using namespace app;

TEST(CatalogueWindows, TheSortDialogBringsAClosedListBack) {
    TestDatabase database;
    database.run(u"insert into zsk (zskid,bookname) values (1,'b'),(2,'a');"_s);
    ScriptedHost host;
    QMainWindow frame;
    frame.setCentralWidget(new QMdiArea);
    frame.show();
    CatalogueWindows windows(host, database.state, {});
    windows.setArea(frame.findChild<QMdiArea *>());
    for (int query = 0; query < 2; ++query) {
        QTimer::singleShot(0, [] {
            if (auto *dialog = qobject_cast<catalogue::QueryFrm *>(QApplication::activeModalWidget()))
                dialog->findData();
        });
        windows.queryCatalogue(catalogueQuery);
    }
    const auto list = [&] { return frame.findChild<catalogue::ZSKListFrm *>(); };
    ASSERT_EQ(frame.findChildren<catalogue::ZSKListFrm *>().size(), 1); // each query uses the same
    EXPECT_EQ(list()->Grid1->text(1, 2), u"b"_s);
    QString condition = u"bookname='b'"_s;
    QString order;
    list()->loadData(condition, order);

    list()->CmdDcgl[1]->click(); // 排序
    auto *sorting = frame.findChild<catalogue::OrderbyFrm *>();
    ASSERT_TRUE(sorting);
    list()->CmdDcgl[5]->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(list());
    sorting->List1->setCurrentRow(0);
    sorting->CmdAdd->click();
    sorting->cmdOK->click();
    ASSERT_TRUE(list());
    EXPECT_TRUE(list()->isVisible());
    EXPECT_EQ(list()->Grid1->text(1, 2) + list()->Grid1->text(2, 2), u"ab"_s); // in the order, without the condition
    EXPECT_TRUE(host.boxes.isEmpty());
}
