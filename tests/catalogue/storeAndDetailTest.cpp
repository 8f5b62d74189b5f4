// The detail window and the store list on a real database.
#include "catalogue/listTexts.h"
#include "catalogue/windows/sckListFrm.h"
#include "catalogue/windows/tlkListFrm.h"
#include "catalogue/windows/workingFrm.h"
#include "platform/codepage936.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"
#include "widgets/styleTokens.h"

using namespace catalogue;

namespace {

class SckListFrmTest : public testing::Test {
protected:
    TestDatabase database;
    ScriptedHost host;
    SCKListFrm detail{database.state, host};
};

TEST_F(SckListFrmTest, ShowsARowAndItsCopies) {
    database.run(uR"(insert into zsk (zskid,bookname,classcode,zch,bookcount,isbn,author,publisher,pubplace,pubdate,
            docclass,lagclass,edition,measure,pages) values (3,'<b>题名&</b>','TP3','12',5,'7-1','者','社','地','2005',
            '类','语','版','cm',320);
        insert into sck (barcode,zskid,price,borrowstatus) values ('B1',3,12.5,'1'),('B2',3,null,'0'),('B3',3,8,null);
        insert into jhsk (barcode,yhdate) values ('B2','2006-03-04');)"_s);
    detail.InfoLoad(3);
    EXPECT_EQ(detail.windowTitle(), u"书目详细资料-书册信息--><b>题名&</b>"_s);
    QStringList shown;
    for (const QLabel *label : detail.LabelZSK)
        shown.append(label->text());
    EXPECT_EQ(shown.join(u' '), // the number of copies, not the stored count
              u"TP3/12 7-1 <b>题名&</b> 者 社 地 2005 类 语 版 cm 320 3"_s);
    EXPECT_EQ(detail.Grid1->text(1, 5) + detail.Grid1->text(2, 5) + detail.Grid1->text(3, 5), u"是否否"_s);
    EXPECT_EQ(detail.Grid1->text(2, 6), u"2006/03/04"_s);
    EXPECT_EQ(detail.Grid1->text(1, 6), QString());

    detail.InfoLoad(99);
    EXPECT_TRUE(detail.Grid1->rows() == 2 && detail.Grid1->text(1, 0).isEmpty());
    detail.InfoLoad(3);
    EXPECT_EQ(detail.Grid1->rows(), 4);
    database.run(u"drop table jhsk;"_s); // the copies of the previous title must disappear
    database.run(u"insert into zsk (zskid,bookname,bookcount) values (4,'乙',9);"_s);
    detail.InfoLoad(4);
    EXPECT_EQ(detail.LabelZSK[12]->text(), u"9"_s);
    EXPECT_EQ(detail.Grid1->text(1, 0), QString());
    detail.InfoLoad(99);
    EXPECT_EQ(detail.windowTitle(), u"书目详细资料-书册信息-->(空)"_s);
    EXPECT_EQ(detail.LabelZSK[0]->text() + detail.LabelZSK[12]->text(), QString());
    EXPECT_EQ(detail.Grid1->rows(), 2);
}

TEST_F(SckListFrmTest, TextsAreSelectableAndShareTheWidth) {
    detail.show();
    for (const QLabel *label : detail.LabelZSK) {
        EXPECT_TRUE(label->textFormat() == Qt::PlainText && label->wordWrap());
        EXPECT_EQ(label->textInteractionFlags(), Qt::TextSelectableByMouse);
        EXPECT_GE(label->minimumHeight(), label->fontMetrics().height());
    }
    EXPECT_NEAR(detail.LabelZSK[0]->width(), detail.LabelZSK[1]->width(), 1);
    const QString grown = WindowState(detail).grown({300, 200});
    EXPECT_EQ(grown.count(u"LabelZSK"), detail.LabelZSK.size());
    EXPECT_TRUE(grown.startsWith(u"Grid1 wh; LabelZSK0 w; ")) << grown.toStdString();
    EXPECT_EQ(detail.Grid1->columnTwips(1), 910);
    EXPECT_GT(detail.Grid1->columnTwips(2), 1500);
    detail.CmdExit->click();
    EXPECT_FALSE(detail.isVisible());
}

TEST_F(SckListFrmTest, KeepsWhatItHadWhenTheServerFails) {
    database.run(u"insert into zsk (zskid,bookname) values (3,'甲');"_s);
    detail.InfoLoad(3);
    EXPECT_EQ(detail.LabelZSK[12]->text(), u"0"_s);
    database.state.connectionString = u"Driver=SQLite3;Database=/nowhere/books.db"_s;
    detail.InfoLoad(0);
    detail.InfoLoad(4);
    EXPECT_EQ(host.texts(), QStringList{u"连接数据库失败"_s});
    EXPECT_EQ(detail.LabelZSK[2]->text(), u"甲"_s);
}

TEST(WorkingFrm, StaysInFrontWithAWaitCursor) {
    WorkingFrm window;
    window.show();
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
    EXPECT_TRUE(window.rect().contains(window.Label1->geometry()) && window.Label1->y() > 0);
    window.unload();
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

class TlkListFrmTest : public testing::Test {
protected:
    TlkListFrmTest() {
        database.run(
            u"insert into taoluTable (bookname,author) values ('e','x'),('d','x'),('c','y'),('b','y'),('a','y');"_s);
    }
    void load(const QString &sql, QString order = {}) {
        Condition condition{sql, sql};
        list.loadData(condition, order);
    }
    QStringList left() { return database.column(u"select bookname from taoluTable order by zskid"_s); }

    TestDatabase database;
    ScriptedHost host;
    int hidden = 0;
    QList<qint64> imported;
    QStringList cards;
    marc::RecordStep stepInCard;
    TLKListFrm list{database.state,
                    host,
                    {.hideWorking = [this] { ++hidden; },
                     .lastImport = [this] { return imported; },
                     .showCard =
                         [this](const QString &marc, const marc::RecordStep &step) {
                             cards.append(marc);
                             stepInCard = step;
                         }}};
};

// Selects exactly the rows of the last import, even if others have inserted rows meanwhile, and saves them to a file.
TEST_F(TlkListFrmTest, SelectsThisImportAndSavesIt) {
    database.run(u"delete from taoluTable; insert into taoluTable (zskid,bookname,marc) values (3,'c','三''\x1d'),"
                 u"(4,'foreign','x'),(5,'e','五\x1d'),(6,'f',null)"_s);
    const auto ink = [](const QWidget *label) { return label->palette().color(QPalette::WindowText); };
    load({}, {});
    EXPECT_EQ(list.conditionWords->text(), u"⚠ 全部记录，未加条件"_s);
    EXPECT_EQ(ink(list.conditionWords), widgets::colour(widgets::Colour::WarningInk, list.palette()));
    list.cmdThisImport->click();
    EXPECT_EQ(host.texts(), QStringList{u"本次运行还没有导入记录。"_s});
    imported = {6, 3, 5};
    list.cmdThisImport->click();
    EXPECT_EQ(list.conditionWords->text(), u"条件：本次导入的 3 条"_s);
    EXPECT_EQ(ink(list.conditionWords), ink(list.lCounts));
    EXPECT_EQ(list.Grid1->text(1, 1) + list.Grid1->text(2, 1) + list.Grid1->text(3, 1), u"cef"_s);
    EXPECT_EQ(list.markedRows->text(), u"选中 3 行"_s);
    EXPECT_EQ(list.focusWidget(), list.Grid1);
    EXPECT_TRUE(list.Grid1->row() == 1 && list.Grid1->rowSel() == 3 && list.Grid1->rows() == 4);
    const TestFolder folder;
    host.willChoose(folder.path(u"改正.iso"_s));
    list.cmdSave->click();
    EXPECT_EQ(folder.read(u"改正.iso"_s), platform::encode(u"三'\x1d\r\n五\x1d\r\n"_s));
    EXPECT_TRUE(host.lastBox().text.startsWith(u"已保存 2 条记录到 "_s)) << host.lastBox().text.toStdString();
    host.willChoose(folder.path(u"改正.iso"_s));
    host.willAnswer(platform::Answer::No);
    list.cmdSave->click();
    list.Grid1->setRow(2);
    QTest::keyClick(list.Grid1, Qt::Key_Return);
    EXPECT_EQ(cards, QStringList{u"五\x1d"_s});
    EXPECT_EQ(stepInCard(-1), u"三'\x1d"_s);
    EXPECT_EQ(stepInCard(-1), std::nullopt);
    EXPECT_TRUE(list.Grid1->row() == 1 && list.markedRows->text() == u"选中 1 行");
    const qsizetype boxes = host.boxes.size();
    database.run(u"drop table taoluTable"_s);
    QTest::keyClick(list.Grid1, Qt::Key_Return);
    EXPECT_TRUE(cards.size() == 1 && host.boxes.size() == boxes + 1) << "a record that cannot be read";
}

TEST_F(TlkListFrmTest, DeletesASelectionInEitherDirection) {
    load({}, u"bookname"_s);
    EXPECT_EQ(list.lCounts->text(), u"记录数：5"_s);
    list.Grid1->setRow(3);
    list.Grid1->setRowSel(2); // c and b, selected upwards
    host.willAnswer(platform::Answer::No);
    list.CmdDcgl[0]->click();
    EXPECT_EQ(left().size(), 5);
    EXPECT_EQ(host.lastBox().text, u"确定要将选择的文献从套录库中删除吗吗？(Y/N)"_s);
    EXPECT_TRUE(host.lastBox().title.isEmpty() && host.lastBox().preselected == platform::Answer::No);
    EXPECT_EQ(host.lastBox().leaving, platform::Leaving::ByButtonsOnly);
    host.willAnswer(platform::Answer::Yes);
    list.CmdDcgl[0]->click();
    EXPECT_EQ(left(), (QStringList{u"e"_s, u"d"_s, u"a"_s}));
    EXPECT_EQ(list.lCounts->text(), u"记录数：3"_s);
    EXPECT_EQ(list.Grid1->text(1, 1), u"a"_s); // reloading keeps the order
    EXPECT_EQ(hidden, 2);

    load(u"author='nobody'"_s);
    EXPECT_EQ(list.lCounts->text(), u"记录数：0"_s);
    host.willAnswer(platform::Answer::Yes);
    list.CmdDcgl[0]->click(); // the empty row of an empty list
    EXPECT_EQ(left().size(), 3);
}

TEST_F(TlkListFrmTest, DeletesWhatTheQueryFoundOrEverything) {
    const auto deleteAll = [this](platform::Answer answer) {
        host.willAnswer(answer);
        list.CmdDcgl[1]->click();
        return left().size();
    };
    load(u"author='x'"_s, u"bookname"_s);
    EXPECT_EQ(deleteAll(platform::Answer::No), 5);
    EXPECT_EQ(deleteAll(platform::Answer::Yes), 5); // the statement contains the order, which this server rejects
    load(u"author='x'"_s);
    EXPECT_EQ(deleteAll(platform::Answer::Yes), 3);
    EXPECT_EQ(list.lCounts->text(), u"记录数：0"_s);
    load({}, u"bookname"_s);
    EXPECT_EQ(deleteAll(platform::Answer::Yes), 0);
    EXPECT_EQ(host.texts(), QStringList(4, u"你确定将检索出的数据从套录库中删除吗？"_s)); // no other message
    EXPECT_EQ(host.lastBox().leaving, platform::Leaving::ByButtonsOnly);
}

// The order is kept when rows are deleted, and does not prevent "delete all".
TEST_F(TlkListFrmTest, IsSortedByItsHeadings) {
    const auto titles = [this] {
        QString shown;
        for (int row = 1; row < list.Grid1->rows(); ++row)
            shown += list.Grid1->text(row, 1);
        return shown;
    };
    load(u"author='y'"_s);
    Q_EMIT list.Grid1->headingClicked(1);
    EXPECT_EQ(titles(), u"abc"_s);
    EXPECT_EQ(list.Grid1->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    Q_EMIT list.Grid1->headingClicked(1);
    EXPECT_EQ(titles(), u"cba"_s);
    EXPECT_EQ(list.Grid1->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    host.willAnswer(platform::Answer::Yes);
    list.CmdDcgl[0]->click();
    EXPECT_EQ(titles(), u"ba"_s);
    host.willAnswer(platform::Answer::Yes);
    list.CmdDcgl[1]->click();
    EXPECT_EQ(left(), (QStringList{u"e"_s, u"d"_s}));
    Q_EMIT list.Grid1->headingClicked(1);
    load({});
    EXPECT_EQ(titles(), u"ed"_s) << "a query has its own order";
}

// The texts of the window while it works: a loading, a deletion, a save and a close.
TEST_F(TlkListFrmTest, ShowsWhatItIsDoing) {
    list.resize(1500, 500);
    showActive(list);
    WindowState state(list);
    PaintedTexts counter(list.lCounts);
    load(u"author='x'"_s);
    EXPECT_TRUE(counter.texts.contains(loadingText));
    EXPECT_EQ(state.changes(), u"conditionWords=条件：author='x'; lCounts=记录数：2; markedRows=选中 1 行"_s);
    EXPECT_TRUE(list.Grid1->columnTwips(1) == 2800 && list.Grid1->columnTwips(7) == 800);
    for (const int button : {0, 1}) {
        counter.texts.clear();
        host.willAnswer(platform::Answer::Yes);
        list.CmdDcgl[size_t(button)]->click();
        EXPECT_TRUE(counter.texts.contains(deletingText)) << button;
    }
    load({});
    (void)state.changes();
    const TestFolder folder;
    for (const QString &file : {u"a.iso"_s, u"b.iso"_s}) {
        host.willChoose(folder.path(file));
        QString during;
        host.onYield = [&] {
            if (during.isEmpty())
                during = state.changes();
            list.saved->flush();
        };
        list.cmdSave->click();
        EXPECT_EQ(during, u"saved=; CmdDcgl0 CmdDcgl1 cmdSave cmdThisImport off; saved stopSaving on"_s);
        host.onYield = {};
        EXPECT_EQ(state.changes(), u"saved gone; stopSaving off; CmdDcgl0 CmdDcgl1 cmdSave cmdThisImport on"_s);
    }
    EXPECT_EQ(state.grown({300, 200}), u"Grid1 wh; conditionWords w"_s);
    host.willChoose({});
    list.cmdSave->click();
    list.close();
    EXPECT_EQ(list.lCounts->text(), leavingText);
}

TEST_F(TlkListFrmTest, ReportsEveryFailureWithTheSameMessage) {
    load({});
    host.onShow = [this] { EXPECT_FALSE(list.lCounts->text().contains(u"加载"_s)) << "no loading message remains"; };
    load(u"author='O'Neill'"_s);
    EXPECT_EQ(list.Grid1->rows(), 2);
    EXPECT_EQ(list.Grid1->text(1, 0), QString());
    database.run(u"drop table taoluTable;"_s);
    load({});
    database.state.connectionString = u"Driver=SQLite3;Database=/nowhere/books.db"_s;
    host.willAnswer(platform::Answer::Yes);
    list.delSelected();
    const QString broken = u"套录库已经损坏,数据不能正常显示。请修复。"_s;
    EXPECT_EQ(host.texts(), (QStringList{broken, broken, u"确定要将选择的文献从套录库中删除吗吗？(Y/N)"_s, broken}));
    EXPECT_EQ(list.lCounts->text(), u"记录数：0"_s);
}

} // namespace
