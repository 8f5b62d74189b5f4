// The drafts as the window offers, restores and reports them.
#include "support/fullDisk.h"
#include "workspaceFixture.h"

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
    ASSERT_TRUE(
        DraftFile(drafts, path())
            .write({{200, {titled(u"改"_s), DraftBook::fingerprint(titled(u"题201"_s))}}, {500, {u"x"_s, {}}}}, {}));
    databaseTrouble = u"没有连接"_s;
    auto &window = load();
    window.show();
    EXPECT_TRUE(says(u"⚠ 没有连接，不能导入"_s));
    window.draftBar->cmdRestore->click();
    EXPECT_TRUE(says(u"2 条的记录还没有读出，读到时恢复"_s));
    EXPECT_GE(window.parts().drafts.dueIn(), 0);
    window.cmdclick[3]->click();
    EXPECT_TRUE(says(u"1 条修改在文件中没有记录，另存为 "_s));
    EXPECT_EQ(titles(200, 201), QStringList{u"201 改"_s});
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
    window.draftBar->cmdDiscard->click();
    EXPECT_TRUE(says(u"丢弃了 1 条修改，另存为 "_s));
    EXPECT_EQ(file.count(), 0);
}

TEST_F(DraftKeeperTest, ADraftThatCannotBeWrittenIsReportedUntilItCan) {
    const QString state = QFileInfo(host.remembered().folderFor(platform::kept::drafts).value().chopped(1)).path();
    ASSERT_TRUE(QDir(state + u"/drafts").removeRecursively());
    QFile blocking(state + u"/drafts");
    ASSERT_TRUE(blocking.open(QIODevice::WriteOnly)); // so that the folder cannot be created
    auto &window = open(2);
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

// The first change starts a two-second timer, and later ones do not postpone the write. Thousands of drafts are written
// in parts.
TEST(DraftKeeper, WritesSoonAfterEachChange) {
    ScriptedHost host;
    const TestFolder folder;
    const QString file = folder.file(u"a.iso"_s, "x");
    RecordList list(u"Grid2"_s, nullptr);
    list.reset();
    list.records().setRows(900);
    for (int row = 0; row < 900; ++row)
        list.records().setRecord(row, u"r"_s);
    EditedRecord record;
    record.show(Workspace::titled(u"题"_s), u"/nowhere/"_s, {});
    DraftKeeper keeper(list, record, host, [] { return std::optional<CellChange>(); });
    const QString drafts = host.remembered().folderFor(platform::kept::drafts).value();
    record.edit({.row = 4, .text = u"甲"_s});
    EXPECT_LT(keeper.dueIn(), 0) << "no file yet";
    keeper.begin(file);
    const std::pair<std::function<void()>, qsizetype> acts[] = {
        {[&] { record.edit({.row = 4, .text = u"乙"_s}); }, 1},
        {[&] { list.take(5, u"new"_s); }, 2},
        {[&] { record.show(u"r"_s, u"/nowhere/"_s, {}); }, 1},
        {[&] { keeper.restore(); }, 1},
        {[&] { keeper.readToTheEnd(20); }, 1},
        {[&] { keeper.touch(); }, 1},
    };
    for (int number = 0; const auto &[act, count] : acts) {
        keeper.write();
        EXPECT_LT(keeper.dueIn(), 0);
        act();
        EXPECT_GE(keeper.dueIn(), 0) << number;
        EXPECT_EQ(keeper.changed(), count) << number++;
    }
    const int due = keeper.dueIn();
    ASSERT_TRUE(QTest::qWaitFor([&] { return keeper.dueIn() < due - 20; }));
    for (int row = 0; row < 900; ++row)
        list.take(row, u"new"_s);
    EXPECT_LT(keeper.dueIn(), due - 20);
    EXPECT_TRUE(QTest::qWaitFor([&] { return keeper.dueIn() < 0; }, 20'000));
    EXPECT_EQ(DraftFile(drafts, file).count(), 900);
    keeper.imported({.taken = 5});
    EXPECT_EQ(DraftFile(drafts, file).count(), 895);
}
