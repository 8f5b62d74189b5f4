// The export of a listed catalogue: the file as other tools read it, refusals, stops, and events during the run.
#include "catalogue/exportRecord.h"
#include "catalogue/windows/zskListFrm.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"

using namespace catalogue;

namespace {

class ExportRunTest : public testing::Test {
protected:
    enum { Export = 3, Stop };

    ExportRunTest() {
        database.run(schemaScript(u"sample.sql"_s));
        load(u"zskid<=10"_s);
        list.show();
    }
    void load(const QString &sql, QString sort = u"zskid"_s) {
        Condition condition{sql, sql};
        list.loadData(condition, sort);
    }
    void run() {
        host.willChoose(path);
        list.CmdDcgl[Export]->click();
    }
    // Calls `act` when the program yields after the record with this number.
    void afterRecord(int number, const std::function<void()> &act) {
        host.onYield = [this, number, act, yields = 0]() mutable {
            if (++yields == number)
                act();
        };
    }
    QList<QByteArray> records() const {
        QList<QByteArray> lines = folder.read(QFileInfo(path).fileName()).replace("\r\n", "\n").split('\n');
        EXPECT_TRUE(lines.takeLast().isEmpty());
        return lines;
    }
    TestDatabase database;
    ScriptedHost host;
    CatalogueOrder order;
    TestFolder folder;
    QString path = folder.path(u"导出.iso"_s);
    ZSKListFrm list{database.state, host, order, {}};
};

QString finalWord(int count, const QString &path) {
    return u"本次操作成功导出%1条数据\r\n以marc格式保存在文件%2中。"_s.arg(count).arg(path);
}

TEST_F(ExportRunTest, WritesEveryListedRowAsARecordThatOthersRead) {
    database.run(
        uR"(insert into zsk (zskid,isbn,lagclass,bookname,author,publisher,pubdate,pages,appendix,classcode,measure)
        values (100,'7-5','chi','“引号”与''撇号''','Ŷ','社','2005','9','图','TP3','cm');)"_s);
    const CatalogueRow full{.zskid = u"100"_s,
                            .isbn = u"7-5"_s,
                            .lagclass = u"chi"_s,
                            .bookname = u"“引号”与'撇号'"_s,
                            .author = u"Ŷ"_s,
                            .publisher = u"社"_s,
                            .pubdate = u"2005"_s,
                            .pages = u"9"_s,
                            .appendix = u"图"_s,
                            .classcode = u"TP3"_s,
                            .measure = u"cm"_s};
    load({});
    const int count = list.Grid1->rows() - 1;
    host.onShow = [&] { EXPECT_EQ(records().size(), count) << "the file is complete when it is reported"; };
    run();
    const qsizetype longNumbers = database.column(u"select zskid from zsk where zskid>99999"_s).size();
    EXPECT_EQ(host.dialogs[0].title, u"导出书库数据为marc格式"_s);
    EXPECT_EQ(host.texts(), QStringList{finalWord(count, path)});
    EXPECT_EQ(list.labDaochu->text(), u"已经导出：%1(100%)"_s.arg(count));

    for (int row = 0; row < count; ++row)
        EXPECT_TRUE(
            records()[row].contains(list.Grid1->text(row + 1, 0).rightJustified(5, u'0').toLatin1().append("hteva")));

    EXPECT_TRUE(records().contains(exportRecord(full)));
    QProcess yaz;
    yaz.start(u"yaz-marcdump"_s, {u"-f"_s, u"gbk"_s, u"-t"_s, u"utf-8"_s, u"-o"_s, u"line"_s,
                                  folder.file(u"joined.iso"_s, records().join())});
    ASSERT_TRUE(yaz.waitForFinished());
    const QString dump = QString::fromUtf8(yaz.readAllStandardOutput() + yaz.readAllStandardError());
    EXPECT_EQ(dump.count(u"hteva\n"_s), count - longNumbers); // longer ones are cut to eleven bytes
    EXPECT_EQ(dump.count(QRegularExpression(u"\n001 |^001 "_s)), count);
    EXPECT_TRUE(dump.contains(u"200 1  $a 红楼梦 $f 曹雪芹著\n"_s)) << dump.left(600).toStdString();
    EXPECT_FALSE(dump.contains(u"Bad") || dump.contains(u"rror")) << dump.toStdString();
}

TEST_F(ExportRunTest, RefusesNoNameAndAnExistingFile) {
    host.willChoose({});
    list.CmdDcgl[Export]->click();
    QFile(path).open(QFile::WriteOnly);
    path += u' ';
    run();
    EXPECT_EQ(host.texts(), (QStringList{u"请输入要保存marc数据的文件名！"_s,
                                         u"选择的路径下已经存在输入的文件名。请重新输入marc数据文件名！"_s}));
    EXPECT_FALSE(list.labDaochu->isVisible());
    load(u"zskid=0"_s);
    path = folder.path(u"empty.iso"_s);
    run();
    EXPECT_EQ(host.texts().last(), finalWord(0, path));
    EXPECT_TRUE(records().isEmpty() && list.labDaochu->isVisible());
}

TEST_F(ExportRunTest, StopsOnlyAfterAQuestion) {
    for (const auto &[answer, written] : {std::pair(platform::Answer::No, 10), {platform::Answer::Yes, 4}}) {
        host.boxes.clear();
        host.willAnswer(answer);
        afterRecord(4, [this] { list.CmdDcgl[Stop]->click(); });
        path = folder.path(u"%1.iso"_s.arg(written));
        list.CmdDcgl[Export]->setEnabled(true); // a stop has disabled it
        host.onShow = [&, asked = false, all = written]() mutable {
            EXPECT_EQ(records().size(), std::exchange(asked, true) ? all : 4) << "what the box reports is in the file";
        };
        run();
        EXPECT_EQ(records().size(), written);
        EXPECT_EQ(host.texts(), (QStringList{u"已经成功导出4条数据。确定要终止导出吗？"_s,
                                             finalWord(written == 10 ? 10 : 3, path)})); // after a stop, one too few
    }
}

TEST_F(ExportRunTest, ClosesTheFileSilentlyWhenItsWindowCloses) {
    afterRecord(4, [this] {
        list.unload();
        EXPECT_TRUE(list.isVisible()); // the run still uses the window
        EXPECT_EQ(records().size(), 4);
    });
    run();
    EXPECT_EQ(records().size(), 4);
    EXPECT_TRUE(!list.isVisible() && host.boxes.isEmpty());
}

// When the label is painted, the file contains the records that it reports.
TEST_F(ExportRunTest, TheKeyThatEndsTheProgramClosesTheFile) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.Grid1->setFocus();
    Q_EMIT list.labDaochu->aboutToShow(); // no run yet
    afterRecord(4, [this] {
        Q_EMIT list.labDaochu->aboutToShow();
        EXPECT_EQ(records().size(), 4);
        QTest::keyClick(list.Grid1, Qt::Key_F, Qt::ControlModifier);
    });
    run();
    EXPECT_EQ(records().size(), 4);
    EXPECT_EQ(host.endings, 1);
    EXPECT_EQ(host.boxes.size(), 1);
}

TEST_F(ExportRunTest, ContinuesWithTheRowsListedAndIgnoresASecondPress) {
    afterRecord(4, [this] {
        list.CmdDcgl[Export]->click();
        load(u"zskid Between 11 And 17"_s);
    });
    run();
    EXPECT_EQ(host.texts(), QStringList{finalWord(7, path)});
    ASSERT_EQ(records().size(), 7);
    EXPECT_TRUE(records()[3].contains("00004hteva") && records()[4].contains("00015hteva"));
}

TEST_F(ExportRunTest, WritesEmptyRecordsSilentlyWhenRowsCannotBeRead) {
    afterRecord(2, [this] { database.run(u"drop table zsk;"_s); });
    run();
    EXPECT_EQ(host.texts(), QStringList{finalWord(10, path)});
    EXPECT_EQ(records().count(exportRecord({})), 8);

    path = folder.path(u"没有/导出.iso"_s); // a file that cannot be created is not reported either
    run();
    EXPECT_EQ(host.texts().last(), finalWord(10, path));
}

} // namespace
