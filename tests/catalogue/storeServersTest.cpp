// The rows of the last import in the store list, on real servers.
#include "catalogue/windows/tlkListFrm.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"

using namespace catalogue;

namespace {

struct StoreOnServerTest : testing::TestWithParam<TestServer> {
    // Adds rows with consecutive keys from 1; every third row is from this import.
    void addRows(int count) const {
        database.run(u"insert into taoluTable (zskid,bookname,author) with d as (select 0 as i union all select 1 "
                     "union all select 2 union all select 3 union all select 4 union all select 5 union all select 6 "
                     "union all select 7 union all select 8 union all select 9) select n,'b',case n%3 when 0 then "
                     "'mine' else 'others' end from (select 1+a.i+10*b.i+100*c.i+1000*e.i+10000*f.i as n from d a,d b,"
                     "d c,d e,d f) as numbers where n<=%1"_s.arg(count));
    }
    QString counted(const QString &author) const {
        return database.selected(u"select count(*) from taoluTable where author='%1'"_s.arg(author));
    }

    TestDatabase database{GetParam()};
    ScriptedHost host;
    QList<qint64> imported;
    TLKListFrm list{database.state,
                    host,
                    {.hideWorking = [] {},
                     .lastImport = [this] { return imported; },
                     .showCard = [](const QString &, const auto &) {}}};
};
ON_ALL_SERVERS(StoreOnServerTest);

// Keys as a cluster of three nodes assigns them: none adjacent, with other users' rows in between.
TEST_P(StoreOnServerTest, DeletesTheRowsOfThisImportAndNoOthers) {
    constexpr int rows = 90'000;
    addRows(rows);
    for (qint64 key = 3; key <= rows; key += 3)
        imported.append(key);
    list.cmdThisImport->click();
    EXPECT_EQ(list.lCounts->text(), u"记录数：%1"_s.arg(rows / 3));
    EXPECT_EQ(list.Grid1->rowSel() - list.Grid1->row() + 1, rows / 3);
    host.willAnswer(platform::Answer::Yes);
    list.CmdDcgl[1]->click();
    EXPECT_EQ(counted(u"mine"_s) + u' ' + counted(u"others"_s), u"0 %1"_s.arg(rows / 3 * 2));
    EXPECT_EQ(host.texts(), QStringList{u"你确定将检索出的数据从套录库中删除吗？"_s});
}

} // namespace
