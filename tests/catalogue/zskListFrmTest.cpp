// The catalogue list on a real database: loading, counters, sorting, details, printing, the key that ends the program.
#include "catalogue/windows/zskListFrm.h"
#include "catalogue/listTexts.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"

using namespace catalogue;

namespace {

class ZskListFrmTest : public testing::Test {
protected:
    ~ZskListFrmTest() override {
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
    }
    void load(const QString &sql, QString sort = {}) {
        Condition condition{sql, sql};
        list.loadData(condition, sort);
    }
    QStringList shown(int column) {
        QStringList texts;
        for (int row = 1; row < list.Grid1->rows(); ++row)
            texts.append(list.Grid1->text(row, column));
        return texts;
    }
    TestDatabase database;
    ScriptedHost host;
    CatalogueOrder order;
    QList<qint32> details;
    QList<DataReportJs> reports;
    ZSKListFrm list{database.state,
                    host,
                    order,
                    {[this](qint32 zskid) { details.append(zskid); }, [] {},
                     [this](const DataReportJs &report) { reports.append(report); }}};
};

TEST_F(ZskListFrmTest, ListsRowsInTheQuerysOrderOrElseTheStoredOne) {
    database.run(schemaScript(u"sample.sql"_s));
    load({});
    const QStringList all = database.column(u"select zskid from zsk"_s);
    EXPECT_EQ(shown(0), all);
    EXPECT_FALSE(list.Grid1->horizontalHeader()->isSortIndicatorShown());
    EXPECT_EQ(list.lCounts->text(), u"记录数：%1"_s.arg(all.size()));
    EXPECT_EQ(list.Grid1->text(1, 7), u"1999/06/08"_s);
    EXPECT_EQ(list.Grid1->columnTwips(0), 0);

    order.sortOrder = u"catatime"_s;
    load(u"author='鲁迅著' And Convert(varchar(10),catatime,111) Like '____/__/__'"_s);
    EXPECT_EQ(shown(7), (QStringList{u"1998/10/08"_s, u"2005/12/22"_s, u"2006/05/01"_s}));
    EXPECT_TRUE(list.Grid1->horizontalHeader()->isSortIndicatorShown());
    EXPECT_EQ(list.Grid1->horizontalHeader()->sortIndicatorSection(), 7);
    load(u"author='鲁迅著'"_s, u"zskid Desc"_s);
    EXPECT_EQ(shown(0), (QStringList{u"9"_s, u"8"_s, u"7"_s}));
    QTest::mouseClick(list.Grid1->horizontalHeader()->viewport(), Qt::LeftButton, {},
                      {list.Grid1->horizontalHeader()->sectionViewportPosition(7) + 5, 5});
    EXPECT_EQ(shown(7), (QStringList{u"1998/10/08"_s, u"2005/12/22"_s, u"2006/05/01"_s}));
    EXPECT_EQ(list.Grid1->horizontalHeader()->sortIndicatorSection(), 7);
    EXPECT_EQ(list.Grid1->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    Q_EMIT list.Grid1->headingClicked(7);
    EXPECT_EQ(shown(7), (QStringList{u"2006/05/01"_s, u"2005/12/22"_s, u"1998/10/08"_s}));
    EXPECT_EQ(list.Grid1->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    list.PrintRpt({});
    EXPECT_EQ(reports.size(), 1);
    EXPECT_EQ(order.sortOrder, u"catatime"_s);
    EXPECT_EQ(list.queryCondition().sql, u"author='鲁迅著'"_s);
}

// Before and after a query; the cursor returns to the first cell.
TEST_F(ZskListFrmTest, HeadsAndCentresItsColumns) {
    database.run(schemaScript(u"sample.sql"_s));
    EXPECT_EQ(list.Grid1->accessibleName(), list.windowTitle());
    for (const QString &condition : {u""_s, u"zskid<5"_s, u"zskid=0"_s}) {
        if (!condition.isEmpty())
            load(condition);
        QString headings;
        for (int column = 0; column < list.Grid1->columns(); ++column) {
            headings += list.Grid1->text(0, column).remove(u' ');
            for (const QVariant &alignment :
                 {list.Grid1->model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole),
                  list.Grid1->model()->index(0, column).data(Qt::TextAlignmentRole)})
                EXPECT_EQ(alignment.toInt(), Qt::AlignCenter) << column;
        }
        EXPECT_EQ(headings, u"控制号ISBN书名著者分类号出版社册数入库日期");
        EXPECT_EQ(list.Grid1->rows(), condition == u"zskid<5" ? 5 : 2);
        EXPECT_TRUE(list.Grid1->row() == 1 && list.Grid1->rowSel() == 1 && list.Grid1->column() == 0);
        EXPECT_GE(list.Grid1->toTwips(list.Grid1->horizontalHeader()->height()), headingTwips);
        list.Grid1->setRow(3);
        list.Grid1->setColumn(2);
    }
    EXPECT_EQ(list.Grid1->columnTwips(1), 1340);
}

TEST_F(ZskListFrmTest, ReportsEmptyAndFailedQueries) {
    database.run(u"insert into zsk (bookname) values ('a'); update zsk set bookname=null;"_s);
    load({});
    ASSERT_EQ(list.lCounts->text(), u"记录数：1"_s);
    for (const QString &condition : {u"zskid=0"_s, u"author='O'<b>Neill'"_s}) { // no rows; a statement that fails
        load(condition);
        EXPECT_EQ(list.lCounts->toolTip().contains(u"没有成功"_s), condition != u"zskid=0")
            << "the failure is reported";
        EXPECT_TRUE(list.lCounts->toolTip().contains(condition.toHtmlEscaped()));
        EXPECT_EQ(list.lCounts->text(), u"要导出的记录数：0"_s);
        EXPECT_EQ(shown(0), QStringList{QString()});
    }
    list.PrintRpt({});
    list.CmdDcgl[0]->click();
    EXPECT_TRUE(reports.isEmpty() && details.isEmpty() && host.boxes.isEmpty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

    load({});
    database.state.connectionString = u"Driver=SQLite3;Database=/nowhere/books.db"_s;
    load(u"zskid=0"_s);
    EXPECT_EQ(host.texts(), QStringList{u"连接数据库失败"_s});
    EXPECT_TRUE(list.lCounts->toolTip().contains(u"全部记录"_s)) << "the condition of the rows still listed";
    EXPECT_EQ(list.lCounts->text(), u"记录数：1"_s); // the list is unchanged, and the caller must reset the cursor
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    list.PrintRpt({});
    EXPECT_TRUE(reports.isEmpty());
    EXPECT_EQ(host.boxes.size(), 1);
}

TEST_F(ZskListFrmTest, ShowsWhatItIsDoing) {
    list.resize(1500, 500);
    database.run(schemaScript(u"sample.sql"_s));
    showActive(list);
    WindowState state(list);
    PaintedTexts counter(list.lCounts);
    load(u"author='鲁迅著'"_s);
    EXPECT_TRUE(counter.texts.contains(loadingText));
    EXPECT_EQ(state.changes(), u"lCounts=记录数：3"_s);
    list.Grid1->setRow(2);
    QTest::keyClick(list.Grid1, Qt::Key_Return);
    list.CmdDcgl[0]->click();
    EXPECT_EQ(details, (QList<qint32>{list.Grid1->text(2, 0).toInt(), list.Grid1->text(2, 0).toInt()}));
    const TestFolder folder;
    host.willChoose(folder.path(u"a.iso"_s));
    QString during;
    host.onYield = [&] { during = during.isEmpty() ? state.changes() : during; };
    list.CmdDcgl[3]->click();
    EXPECT_EQ(during.section(u"; "_s, -1), u"labDaochu on"_s);
    (void)state.changes();
    const int title = list.Grid1->columnTwips(2);
    EXPECT_EQ(state.grown({300, 200}), u"Grid1 wh; lCounts w"_s);
    EXPECT_GT(list.Grid1->columnTwips(2), title) << "the columns follow the width";
    (void)state.changes();
    list.CmdDcgl[4]->click(); // without a run
    EXPECT_EQ(state.changes(), u"CmdDcgl3 CmdDcgl4 off"_s);
    list.CmdDcgl[5]->click();
    EXPECT_EQ(list.lCounts->text(), leavingText);
    EXPECT_FALSE(list.isVisible());
}

TEST_F(ZskListFrmTest, PrintsTheListedRows) {
    database.run(schemaScript(u"sample.sql"_s));
    load(u"author='鲁迅著'"_s, u"zskid"_s);
    list.CmdDcgl[2]->click();
    ASSERT_EQ(reports.size(), 1);
    EXPECT_EQ(reports[0].caption, u"打印图书检索一览表"_s);
    EXPECT_EQ(reports[0].title, u"图书检索一览表"_s);
    EXPECT_EQ(reports[0].date, host.clock.date());
    ASSERT_EQ(reports[0].rows->rowCount(), 3);
    QStringList first;
    for (auto column : reports[0].columns)
        first.append(column.heading.remove(u' ') + u'=' + reports[0].rows->text(0, column.source));
    EXPECT_EQ(first.join(u' '), u"书名=呐喊 著者=鲁迅著 分类号=I210.6 出版社=人民文学出版社 馆藏册数=3"_s);
}

TEST_F(ZskListFrmTest, EndsTheProgramOnTheKeyWithoutAQuery) {
    showActive(list);
    list.Grid1->setFocus();
    QTest::keyClick(list.Grid1, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(host.boxes.size(), 1);
    EXPECT_EQ(host.endings, 1);
}

} // namespace
