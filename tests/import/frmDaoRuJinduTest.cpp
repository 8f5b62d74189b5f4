#include "import/windows/frmDaoRuJindu.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"
#include "widgets/button.h"
#include "widgets/lineIcon.h"
#include "widgets/pacedLabel.h"
#include <QSignalSpy>

using namespace importing;

namespace {

// A list of records and a database whose titles are unique, so that inserting a repeated title fails.
struct FrmDaoRuJinduTest : testing::Test {
    ScriptedHost host;
    TestDatabase database;
    std::shared_ptr<marc::PreReadStore> records = std::make_shared<marc::PreReadStore>();

    FrmDaoRuJinduTest() { database.run(u"create unique index once on taoluTable (bookname)"_s); }
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

TEST_F(FrmDaoRuJinduTest, RunsOnceAndReportsEachStep) {
    list({u"甲"_s, u"甲"_s, u"丙's"_s});
    frmDaoRuJindu window(host, database.state, records);
    QStringList said;
    PaintedTexts painted(window.labJinDuShu);
    EXPECT_TRUE(window.Text1->isHidden() && window.Text2->isHidden() && !window.barJinduTishi->isTextVisible());
    EXPECT_FALSE(window.Picture1->pixmap().isNull());
    const QImage before = window.Picture1->pixmap().toImage();
    host.onYield = [&] {
        EXPECT_TRUE(said.size() != 1 || painted.texts.value(painted.texts.size() - 1) == u"已经成功处理的记录数：0")
            << "the count is painted before the next record changes it";
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window)); // nothing is painted before
        EXPECT_TRUE(window.cmdRefused->isHidden() && window.labTishi->isHidden() && window.LabBi->isVisible());
        EXPECT_EQ(window.barJinduTishi->value(), said.size() + 1);
        EXPECT_EQ(window.barJinduTishi->maximum(), 3);
        EXPECT_GE(window.LabBi->width(), window.fontMetrics().horizontalAdvance(u"100.00%"_s));
        EXPECT_GE(window.labJinDuShu->width(),
                  window.fontMetrics().horizontalAdvance(u"已经成功处理的记录数：2147483647"_s));
        EXPECT_TRUE(window.LabBi->alignment().testFlag(Qt::AlignRight));
        said.append(window.labJinDuShu->pacedText() + u' ' + window.LabBi->pacedText());
        window.activate(); // some window systems report an activation twice
        window.close();
    };
    open(window, u"3"_s);
    EXPECT_EQ(said, (QStringList{u"已经成功处理的记录数：1 33.33%"_s, u"已经成功处理的记录数：0 66.67%"_s,
                                 u"已经成功处理的记录数：2 100.00%"_s}));
    EXPECT_TRUE(window.barJinduTishi->isHidden() && window.LabBi->isHidden() && window.labTishi->isVisible());
    EXPECT_TRUE(window.cmdRefused->text() == u"&N 未成功 1 条" && !window.cmdStop->isEnabled());
    EXPECT_TRUE(window.cmdRefused->isVisible() && window.cmdRefused->accessibleName() == u"未成功 1 条");
    EXPECT_TRUE(window.leftOutWords->text().isEmpty());
    QSignalSpy wanted(&window, &frmDaoRuJindu::refusedWanted);
    window.cmdRefused->click();
    EXPECT_EQ(wanted.size(), 1);
    QStringList keys;
    for (const qint64 key : window.keys())
        keys.append(QString::number(key));
    EXPECT_EQ(keys, database.column(u"select zskid from taoluTable order by zskid"_s));
    EXPECT_FALSE(window.Picture1->pixmap().toImage() == before) << "a warning";
    EXPECT_EQ(host.texts(), QStringList(3, u"请先停止导入！"_s));
    EXPECT_EQ(window.windowTitle(), u"套录库数据导入进度"_s);
    EXPECT_EQ(window.labEndShu->text(), u"要导入的机读记录总计：3"_s);
    EXPECT_EQ(window.labJinDuShu->text(), u"处理完毕！"_s);
    EXPECT_EQ(window.labTishi->text(), u"本次成功处理的记录数：2"_s);
    EXPECT_EQ(stored(), (QStringList{u"甲"_s, u"丙's"_s}));
    window.cmdQuit->click();
    EXPECT_FALSE(window.isVisible());
}

// The empty row after the record that is left out repeats the result before it.
TEST_F(FrmDaoRuJinduTest, LeavesOutTheRecordsThatTheUserExcluded) {
    list({u"甲"_s, u"乙"_s, u"丙"_s, u"丁"_s});
    frmDaoRuJindu window(host, database.state, records);
    window.leaveOut({{1, {}}, {3, {}}});
    open(window, u"5"_s);
    EXPECT_EQ(stored(), (QStringList{u"甲"_s, u"丙"_s}));
    EXPECT_EQ(window.labTishi->text() + window.leftOutWords->text(), u"本次成功处理的记录数：3跳过查重命中的 2 条"_s);
    EXPECT_TRUE(window.refused().empty() && window.wentIn() == 2 && window.taken() == 5);
    const auto sign = [&window](const QString &icon) {
        return widgets::lineIcon(icon).pixmap(window.style()->pixelMetric(QStyle::PM_LargeIconSize)).toImage();
    };
    EXPECT_EQ(window.Picture1->pixmap().toImage(), sign(u"done"_s));
}

TEST_F(FrmDaoRuJinduTest, StopsAfterTheCurrentRecord) {
    list({u"甲"_s, u"乙"_s, u"丙"_s});
    frmDaoRuJindu window(host, database.state, records);
    host.onYield = [&] { window.cmdStop->click(); };
    open(window, u"3"_s);
    EXPECT_EQ(stored(), QStringList{u"甲"_s});
    EXPECT_EQ(window.labTishi->text(), u"本次成功处理的记录数：1"_s);
    EXPECT_FALSE(window.cmdStop->isEnabled() || window.cmdRefused->isVisible());
}

// Each failure shows a box. Its check box silences the same message for the rest of the run; the next run shows it
// again.
TEST_F(FrmDaoRuJinduTest, ReportsFailuresAndContinues) {
    list({u"甲"_s, u"乙"_s, u"丙"_s, u"丁"_s});
    records->setRecord(2, u"00026nam0 2200025   450 2001\x1E\x1D"_s); // a damaged directory
    const QString damaged = u"当前marc数据地址目次区数据出现错误！"_s;
    database.state.connectionString = u"Driver=SQLite3;Database="_s + host.folder + u"/none/store.db;";
    frmDaoRuJindu window(host, database.state, records);
    open(window, u"4"_s);
    ASSERT_EQ(host.boxes.size(), 4);
    const platform::Box unreachable = host.boxes[0];
    EXPECT_EQ(unreachable.title, u"系统操作提示"_s);
    EXPECT_TRUE(unreachable.text.startsWith(u'【') && unreachable.text.endsWith(u'】'));
    EXPECT_EQ(host.texts(), (QStringList{unreachable.text, unreachable.text, damaged, unreachable.text}));
    EXPECT_EQ(window.labTishi->text(), u"本次成功处理的记录数：0"_s);
    host.checksTick = true;
    for (int run = 0; run < 2; ++run) {
        host.boxes.clear();
        frmDaoRuJindu silenced(host, database.state, records);
        open(silenced, u"4"_s);
        EXPECT_EQ(host.texts(), (QStringList{unreachable.text, damaged})) << run;
        EXPECT_EQ(silenced.refused().size(), 4);
    }

    frmDaoRuJindu noNumber(host, database.state, records);
    open(noNumber, u"许多"_s);
    EXPECT_EQ(host.boxes.size(), 3);
    EXPECT_TRUE(noNumber.close()); // no run, so the window can be closed
}
