// The drafts as the window offers, restores and reports them.
#include "support/fullDisk.h"
#include "workspaceFixture.h"
#include <QDir>
#include <QFileInfo>

using namespace workspace;
using DraftKeeperTest = Workspace;

TEST_F(DraftKeeperTest, DraftsAreOfferedAndReported) {
    load(3);
    change(4, u"改一"_s);
    EXPECT_TRUE(said(u"已改 1 条，未导入"_s));
    form->parts().drafts.write();
    form.reset(); // as after a crash
    auto &window = load();
    window.show();
    EXPECT_EQ(window.draftBar->draftWords->text(), u"上次有 1 条修改没有导入"_s);
    change(4, u"更新"_s);
    window.draftBar->cmdRestore->click();
    EXPECT_TRUE(said(u"1 条本次已另改，没有恢复，另存为 "_s));
    EXPECT_FALSE(says(u"0 条"_s));
    EXPECT_EQ(value(4), u"更新"_s);
}

// A draft whose record is read only later is restored then; one that has no record is reported at the end of the file.
TEST_F(DraftKeeperTest, DraftsWaitForTheirRecords) {
    writeRecords(230);
    const QString drafts = host.remembered().folderFor(platform::kept::drafts).value();
    ASSERT_TRUE(DraftFile(drafts, path()).write({{210, {titled(u"改"_s), {}}}, {500, {u"x"_s, {}}}}, {}));
    databaseTrouble = u"没有连接"_s;
    auto &window = load();
    window.show();
    EXPECT_TRUE(says(u"⚠ 没有连接，不能导入"_s));
    window.draftBar->cmdRestore->click();
    EXPECT_TRUE(says(u"2 条的记录还没有读出，读到时恢复"_s));
    EXPECT_GE(window.parts().drafts.dueIn(), 0);
    window.cmdclick[3]->click();
    EXPECT_TRUE(says(u"1 条修改在文件中没有记录，另存为 "_s));
    EXPECT_EQ(titles(210, 211), QStringList{u"211 改"_s});
}

TEST_F(DraftKeeperTest, OlderDraftsOfARowAreSetAsideOrTheFileStays) {
    writeRecords(2);
    const QString drafts = host.remembered().folderFor(platform::kept::drafts).value();
    const DraftFile file(drafts, path());
    ASSERT_TRUE(DraftFile(drafts, path()).write({{0, {titled(u"新"_s), {}}}}, {{0, {titled(u"旧"_s), {}}}}));
    {
        const FullDisk full(10);
        EXPECT_TRUE((load(), says(u"⚠ 修改无法暂存："_s)));
        form.reset();
    }
    EXPECT_EQ(file.count(), 1);
    auto &window = load();
    EXPECT_TRUE(says(u"另有 1 条更早的修改，另存为 "_s));
    EXPECT_GE(window.parts().drafts.dueIn(), 0) << "the older ones must leave the file";
    EXPECT_EQ(window.draftBar->draftWords->text(), u"上次有 1 条修改没有导入"_s);
}

// The first change starts a two-second timer; later actions do not postpone the write.
TEST_F(DraftKeeperTest, PagingDoesNotPostponeAWrite) {
    auto &window = load(30);
    window.show();
    change(4, u"改"_s);
    DraftKeeper &drafts = window.parts().drafts;
    const int due = drafts.dueIn();
    ASSERT_GE(due, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return drafts.dueIn() < due - 20; }));
    const int then = drafts.dueIn();
    host.willAnswer(platform::Answer::Yes);
    window.cmdTiMing[1]->click();
    window.cmdTiMing[1]->click();
    EXPECT_LE(drafts.dueIn(), then);
}

TEST_F(DraftKeeperTest, ADraftThatCannotBeWrittenIsReportedUntilItCan) {
    const QString state = QFileInfo(host.remembered().folderFor(platform::kept::drafts).value().chopped(1)).path();
    ASSERT_TRUE(QDir(state + u"/drafts").removeRecursively());
    QFile blocking(state + u"/drafts");
    ASSERT_TRUE(blocking.open(QIODevice::WriteOnly)); // so that the folder cannot be created
    auto &window = load(2);
    window.show();
    EXPECT_TRUE(says(u"⚠ 修改无法暂存："_s));
    change(4, u"改"_s);
    window.parts().drafts.write();
    EXPECT_TRUE(says(u"⚠ 修改无法暂存："_s));
    EXPECT_GE(window.parts().drafts.dueIn(), 0) << "another attempt is due";
    host.willAnswer(platform::Answer::Yes);
    window.cmdTiMing[1]->click(); // taken over before there is a folder
    ASSERT_TRUE(blocking.remove());
    window.parts().drafts.write();
    EXPECT_FALSE(says(u"暂存"_s));
    EXPECT_LT(window.parts().drafts.dueIn(), 0);
    EXPECT_EQ(QDir(state + u"/drafts").entryList({u"*.json"_s}).size(), 1);
    change(4, QString(100'000, u'改'));
    {
        const FullDisk full(1000);
        window.parts().drafts.write();
    }
    EXPECT_TRUE(says(u"⚠ 修改无法暂存："_s) && window.parts().drafts.dueIn() >= 0);
    window.parts().drafts.write();
    EXPECT_FALSE(says(u"暂存"_s));
}
