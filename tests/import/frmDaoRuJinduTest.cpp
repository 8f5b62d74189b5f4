#include "import/windows/frmDaoRuJindu.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"

using namespace importing;

namespace {

// A list of records and a store whose titles are unique, so that a repeated title is an insert that fails.
struct ImportWindow : testing::Test {
    ScriptedHost host;
    TestDatabase database;
    std::shared_ptr<marc::PreReadStore> records = std::make_shared<marc::PreReadStore>();

    ImportWindow() { database.run(u"create unique index once on taoluTable (bookname)"_s); }
    QStringList stored() { return database.column(u"select bookname from taoluTable order by zskid"_s); }
    void list(const QStringList &titles) {
        for (int i = 0; i < titles.size(); ++i)
            records->setRecord(i, recordOf({{u"200"_s, u"1 $a"_s + titles[i]}}));
    }
    void open(frmDaoRuJindu &window, const QString &count) {
        window.Text1->setText(u"0"_s);
        window.Text2->setText(count);
        window.show();
        QApplication::processEvents();
    }
};

} // namespace

TEST_F(ImportWindow, RunsOnceAndTellsEachStep) {
    list({u"甲"_s, u"甲"_s, u"丙's"_s});
    frmDaoRuJindu window(host, database.state, records);
    QStringList said;
    host.onYield = [&] {
        said.append(window.labJinDuShu->pacedText() + u' ' + window.LabBi->pacedText());
        window.activate(); // as a window system does that reports an activation twice
        window.close();
    };
    open(window, u"3"_s);
    EXPECT_EQ(said, (QStringList{u"已经成功处理的记录数：1 33.33%"_s, u"已经成功处理的记录数：0 66.67%"_s,
                                 u"已经成功处理的记录数：2 100.00%"_s}));
    EXPECT_EQ(host.texts(), QStringList(3, u"请先停止导入！"_s));
    EXPECT_EQ(window.windowTitle(), u"套录库数据导入进度"_s);
    EXPECT_EQ(window.labEndShu->text(), u"要导入的机读记录总计：3"_s);
    EXPECT_EQ(window.labJinDuShu->text(), u"处理完毕！"_s);
    EXPECT_EQ(window.labTishi->text(), u"本次成功处理的记录数：2"_s);
    EXPECT_EQ(stored(), (QStringList{u"甲"_s, u"丙's"_s}));
    EXPECT_TRUE(window.isVisible() && window.LabBi->isHidden());
    window.cmdQuit->click();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(ImportWindow, StopsBehindTheRecordInHand) {
    list({u"甲"_s, u"乙"_s, u"丙"_s});
    frmDaoRuJindu window(host, database.state, records);
    host.onYield = [&] { window.cmdStop->click(); };
    open(window, u"3"_s);
    EXPECT_EQ(stored(), QStringList{u"甲"_s});
    EXPECT_EQ(window.labTishi->text(), u"本次成功处理的记录数：1"_s);
    EXPECT_FALSE(window.cmdStop->isEnabled());
}

TEST_F(ImportWindow, TellsWhatStandsInTheWayAndGoesOn) {
    list({u"甲"_s, u"乙"_s});
    records->setRecord(1, u"00026nam0 2200025   450 2001\x1E\x1D"_s); // a damaged directory
    database.state.connectionString = u"Driver=SQLite3;Database="_s + host.folder + u"/none/store.db;";
    frmDaoRuJindu window(host, database.state, records);
    open(window, u"2"_s);
    ASSERT_EQ(host.boxes.size(), 2);
    EXPECT_EQ(host.boxes[0].title, u"系统操作提示"_s);
    EXPECT_TRUE(host.boxes[0].text.startsWith(u'【') && host.boxes[0].text.endsWith(u'】'));
    EXPECT_EQ(host.boxes[1].text, u"当前marc数据地址目次区数据出现错误！"_s);
    EXPECT_EQ(window.labTishi->text(), u"本次成功处理的记录数：0"_s);

    frmDaoRuJindu noNumber(host, database.state, records);
    open(noNumber, u"许多"_s);
    EXPECT_EQ(host.boxes.size(), 3);
    EXPECT_TRUE(noNumber.close()); // nothing runs, so nothing holds the window
}
