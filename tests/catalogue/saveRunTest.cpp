// "存为机读文件": the contents of the file, the messages, and events during the run.
#include "catalogue/windows/tlkListFrm.h"
#include "platform/codepage936.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"

using namespace catalogue;

namespace {

class SaveRunTest : public testing::Test {
protected:
    void addRow(int key, const QString &marc) const {
        database.run(u"insert into taoluTable (zskid,marc) values (%1,'%2')"_s.arg(key).arg(marc));
    }
    // Adds `count` rows, each with a different record.
    void addRows(int count) const {
        database.run(
            u"insert into taoluTable (zskid,marc) with recursive n(i) as (select 1 union all select i+1 from n "
            "where i<%1) select i,'r'||i||char(30)||char(29) from n"_s.arg(count));
    }
    void save() {
        Condition condition;
        QString order = u"zskid"_s;
        list.loadData(condition, order);
        list.show();
        host.willChoose(path);
        list.cmdSave->click();
    }
    // Calls `act` when the program yields after the record with this number.
    void afterRecord(int number, const std::function<void()> &act) {
        host.onYield = [number, act, yields = 0]() mutable {
            if (++yields == number)
                act();
        };
    }
    QStringList filesBeside() const { return QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden); }

    TestDatabase database;
    ScriptedHost host;
    TestFolder folder;
    QString path = folder.path(u"存.iso"_s);
    TLKListFrm list{database.state, host, {.hideWorking = [] {}, .lastImport = {}, .showCard = {}}};
};

// Records that other programs have stored: without a terminator, with a line end, incomplete.
TEST_F(SaveRunTest, EachRecordIsALineThatTheReaderReadsAsOne) {
    addRow(1, u"甲\x1e\x1d"_s);
    addRow(2, u"乙\x1e"_s);
    addRow(3, u"丙"_s);
    addRow(4, u"丁\x1e\x1d\r\n"_s);
    addRow(5, u"戊\x1e\r\n"_s);
    addRow(6, u"己\036庚"_s);
    save();
    const QByteArray expected = platform::encode(u"甲\x1e\x1d\r\n乙\x1e\x1d\r\n丙\x1d\r\n丁\x1e\x1d\r\n戊\x1e\x1d\r\n"
                                                 "己\036庚\x1e\x1d\r\n"_s);
    EXPECT_EQ(folder.read(u"存.iso"_s), expected);
    EXPECT_EQ(host.texts(), QStringList{u"已保存 6 条记录到 "_s + path});
}

TEST_F(SaveRunTest, ReportsWhatWasLost) {
    addRow(7, u"Ŷé𠮷\x1e\x1d"_s);
    addRow(8, u"无"_s);
    addRow(9, u"ŶŶ\x1e\x1d"_s);
    database.run(u"insert into taoluTable (zskid,marc) values (10,null)"_s);
    save();
    EXPECT_TRUE(folder.read(u"存.iso"_s).startsWith("?\xa8\xa6??\x1e"));
    EXPECT_EQ(host.lastBox().text, u"已保存 3 条记录到 "_s + path +
                                       u"\n有 1 条已经删除，或没有机读记录，没有保存。\n有 4 处的字 GBK 里没有，"
                                       u"写成了“?”：Ŷ（U+0176） 3 处，𠮷（U+20BB7） 1 处。在控制号 7、9 的记录里。");
}

TEST(LostCharacters, AreNamedUpToTen) {
    for (const int count : {10, 11}) {
        LostCharacters lost;
        for (int i = 0; i < count; ++i)
            lost.look(QString(QChar(0x0E01 + i)), 100 + i);
        const QString words = lost.words();
        EXPECT_TRUE(words.startsWith(u"有 %1 处的字 GBK 里没有，写成了“?”：ก（U+0E01） 1 处，"_s.arg(count)));
        EXPECT_EQ(words.count(u"U+"), 10);
        EXPECT_EQ(words.count(u" 等"), count == 10 ? 0 : 2);
        EXPECT_EQ(words.contains(u"110"), false) << words.toStdString();
    }
}

TEST_F(SaveRunTest, NothingElseStartsWhileItRunsAndAStopKeepsTheOldFile) {
    addRows(1200);
    folder.file(u"存.iso"_s, "as it was");
    host.willAnswer(platform::Answer::Yes); // to replace the file
    int done = 0;
    afterRecord(700, [&] {
        for (const widgets::Button *button : {list.cmdThisImport, list.cmdSave, list.CmdDcgl[0], list.CmdDcgl[1]})
            EXPECT_FALSE(button->isEnabled()) << button->text().toStdString();
        EXPECT_EQ(list.saved->text(), u"已经保存：700/1200"_s);
        EXPECT_TRUE(list.saved->isVisible());
        ++done;
        list.stopSaving->click();
        EXPECT_EQ(filesBeside(), QStringList{u"存.iso"_s}) << "no partial file is left, even if the program ends now";
    });
    save();
    EXPECT_EQ(done, 1);
    EXPECT_EQ(host.texts().last(), u"已停止，没有保存。"_s);
    EXPECT_EQ(folder.read(u"存.iso"_s), "as it was");
    EXPECT_TRUE(list.cmdSave->isEnabled() && list.CmdDcgl[1]->isEnabled() && !list.stopSaving->isEnabled());
    EXPECT_FALSE(list.saved->isVisible());
}

TEST_F(SaveRunTest, AClosedWindowEndsItsRunFirst) {
    addRows(30);
    afterRecord(4, [&] {
        list.unload();
        EXPECT_TRUE(list.isVisible()); // the run still uses the window
    });
    save();
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(host.texts(), QStringList{u"已停止，没有保存。"_s});
    afterRecord(4, [&] { list.endRun(); }); // the process ends
    save();
    EXPECT_EQ(host.boxes.size(), 1);
    EXPECT_EQ(filesBeside(), QStringList());
}

TEST_F(SaveRunTest, ContinuesWithTheRowsThatWereListedAndStopsAtAFailure) {
    addRows(600);
    afterRecord(3, [&] {
        Condition condition{u"zskid=600"_s, {}};
        QString order;
        list.loadData(condition, order); // another query from the main window
    });
    save();
    EXPECT_EQ(folder.read(u"存.iso"_s).count('\n'), 600);
    host.willAnswer(platform::Answer::Yes);
    afterRecord(3, [&] { database.run(u"drop table taoluTable"_s); });
    save();
    EXPECT_TRUE(host.lastBox().text.startsWith(u"没有保存："_s)) << host.lastBox().text.toStdString();
    EXPECT_EQ(folder.read(u"存.iso"_s).count('\n'), 600);
}

} // namespace
