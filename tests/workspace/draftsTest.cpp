#include "support/fullDisk.h"
#include "support/machine.h"
#include "support/testFolder.h"
#include "workspace/draftFile.h"

using workspace::Draft;
using workspace::DraftBook;
using workspace::DraftFile;
using workspace::Drafts;

namespace {

struct DraftFileTest : testing::Test {
    const TestFolder folder;
    QString source = folder.file(u"书.iso"_s, "records");
    QDir drafts{folder.path(u"drafts/"_s)};

    void SetUp() override { ASSERT_TRUE(drafts.mkpath(u"."_s)); }
    QString in() const { return drafts.path() + u'/'; }
    DraftFile file() const { return DraftFile(in(), source); }
    QStringList names(const QString &mask) const {
        return drafts.entryList({mask}, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    // Returns the path of the only file of drafts, named by its first write.
    QString path() const {
        EXPECT_TRUE(file().write({{0, {u"x"_s, {}}}}, {}));
        return in() + names(u"*.json"_s).value(0);
    }
    QByteArray bytesOf(const QString &path) const { return folder.read(u"drafts/"_s + QFileInfo(path).fileName()); }
};

} // namespace

TEST_F(DraftFileTest, DraftsAreReadOnlyForTheSameFile) {
    const QString record = u"00026题\x1f"
                           u"a\x1e\x1d\"\\\n\uF8F5é"_s;
    const Drafts changed{{3, {record, "o3"}}, {9, {u"y"_s, "o9"}}};
    ASSERT_TRUE(file().write(changed, {{3, {u"older"_s, "o"}}, {7, {u"left"_s, {}}}}));
    const QString path = in() + names(u"*.json"_s).value(0);
    EXPECT_EQ(QFile(path).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    const auto found = file().read();
    ASSERT_TRUE(found);
    EXPECT_EQ(found.value().drafts, (Drafts{{3, {record, "o3"}}, {7, {u"left"_s, {}}}, {9, {u"y"_s, "o9"}}}));
    EXPECT_EQ(found.value().older, (Drafts{{3, {u"older"_s, "o"}}}));
    EXPECT_EQ(file().count(), 3);

    const QString other = folder.file(u"别.iso"_s, "records");
    EXPECT_TRUE(DraftFile(in(), other).read().value().drafts.isEmpty()) << "a different file of the same size";
    DraftFile early = file();
    const auto changeTime = [&](int seconds) {
        QFile at(source);
        ASSERT_TRUE(at.open(QIODevice::ReadWrite));
        ASSERT_TRUE(at.setFileTime(QDateTime::fromSecsSinceEpoch(1000 + seconds), QFileDevice::FileModificationTime));
    };
    changeTime(5); // the same size, another modification time
    EXPECT_EQ(file().count(), 0);
    EXPECT_TRUE(file().read().failure().description.startsWith(u"上次未导入的修改属于改变前的文件，已另存为 "_s));
    EXPECT_EQ(names(u"*.json"_s).size(), 0);
    EXPECT_TRUE(early.write(changed, {}));
    EXPECT_FALSE(file().read()) << "drafts belong to the version of the file that was opened";
    EXPECT_EQ(names(u"*.kept"_s).size(), 2) << "each has a different name";

    ASSERT_TRUE(file().write(changed, {}));
    EXPECT_TRUE(file().write({}, {}));
    EXPECT_EQ(names(u"*.json"_s).size(), 0) << "without drafts the file is removed";
    const auto first = file().setAside(changed), second = file().setAside(changed);
    EXPECT_TRUE(first && second && first.value() != second.value());
    EXPECT_FALSE(bytesOf(first.value()).contains("left"));
    EXPECT_FALSE(DraftFile(folder.path(u"没有/"_s), source).setAside(changed));
}

TEST_F(DraftFileTest, DamagedAndForeignFilesAreSetAside) {
    const QByteArray good = bytesOf(path());
    const QByteArray heading = good.left(good.indexOf('\n') + 1);
    const QByteArray draft = R"({"row":3,"origin":"","record":"r"})"
                             "\n";
    const auto line = [](const char *row, const char *record) -> QByteArray {
        return QByteArray(R"({"row":)") + row + R"(,"origin":"","record":)" + record + "}\n";
    };
    const qsizetype at = heading.indexOf("\"identity\"");
    const QByteArray identity = heading.mid(at, heading.indexOf(',', at) - at);
    const auto earlier = [&](const QByteArray &records) -> QByteArray {
        return "{" + identity + ",\"records\":" + records + "}";
    };
    struct Case {
        QByteArray text;
        const char16_t *words; // nullptr: the file is accepted
    };
    const QList<Case> cases{
        {heading + draft, nullptr},
        {heading, nullptr},
        {earlier(R"({"0":"r"})"), nullptr},
        {QByteArray(heading).replace("\"version\":3", "\"version\":2") + draft, nullptr},
        {"", u"损坏"},
        {"\0\0\0", u"损坏"},
        {"[]\n", u"损坏"},
        {heading.left(20), u"损坏"},
        {draft, u"损坏"},
        {heading + draft + draft.chopped(1), nullptr}, // the last change was not written completely
        {heading + draft.chopped(1) + draft, u"损坏"},
        {heading + draft + "{\"row\":3,\"gone\":true}\n", nullptr},
        {heading + "{\"row\":-3,\"gone\":true}\n", u"损坏"},
        {heading + line("-1", "\"r\""), u"损坏"},
        {heading + line("2147483647", "\"r\""), u"损坏"},
        {heading + line("1e300", "\"r\""), u"损坏"},
        {heading + line("1.5", "\"r\""), u"损坏"},
        {heading + line("\"3\"", "\"r\""), u"损坏"},
        {heading + line("3", "7"), u"损坏"},
        {heading + line("3", "\"\""), u"损坏"},
        {heading + line("3", QByteArray('"' + QByteArray(1 << 24, 'x') + '"').constData()), u"损坏"},
        {earlier(R"({"-3":"r"})"), u"损坏"},
        {earlier(R"({"3":7})"), u"损坏"},
        {QByteArray(heading).replace("\"version\":3", "\"version\":4") + draft, u"另一版本"},
        {QByteArray(heading).replace("\"identity\":\"7 ", "\"identity\":\"8 ") + draft, u"改变前的文件"},
    };
    for (int number = 0; const Case &each : cases) {
        SCOPED_TRACE(number++);
        folder.file(u"drafts/"_s + QFileInfo(path()).fileName(), each.text);
        const auto found = file().read();
        ASSERT_EQ(found.ok(), !each.words);
        if (found)
            continue;
        EXPECT_TRUE(found.failure().description.contains(each.words));
        const QString kept = in() + names(u"*.kept"_s).value(0);
        EXPECT_TRUE(found.failure().description.endsWith(kept));
        EXPECT_EQ(bytesOf(kept), each.text);
        EXPECT_TRUE(QFile::remove(kept) && names(u"*.json"_s).isEmpty());
    }
}

// Does not open files that could block the program or fill its memory.
TEST_F(DraftFileTest, SpecialAndTooLargeFilesAreNotRead) {
    const QString path = this->path();
    const auto make = QList<std::function<bool()>>{
        [&] { return makePipe(path); },
        [&] { return QFile::link(u"/dev/zero"_s, path); },
        [&] { return QDir().mkdir(path); },
        [&] { return QFile::link(folder.path(u"没有"_s), path); },
        [&] { return QFile(path).open(QIODevice::WriteOnly) && QFile::resize(path, DraftFile::largest + 1); },
    };
    for (const auto &make : make) {
        QFile::remove(path);
        ASSERT_TRUE(make());
        DraftFile file(in(), source);
        EXPECT_TRUE(file.read().failure().description.contains(u"不能读，已另存为"_s));
        EXPECT_TRUE(file.write({{1, {u"z"_s, {}}}}, {}));
        EXPECT_EQ(DraftFile(in(), source).read().value().drafts.value(1).record, u"z"_s);
    }
}

// Thousands of drafts are written in parts, and only what changed.
TEST_F(DraftFileTest, AppendedDraftsReplaceEarlierOnes) {
    DraftFile file(in(), source);
    EXPECT_TRUE(file.append({}, {4}));
    EXPECT_EQ(names(u"*.json"_s).size(), 0);
    ASSERT_TRUE(file.append({{1, {u"a"_s, "o"}}, {2, {u"b"_s, "o"}}}, {}));
    const QString path = in() + names(u"*.json"_s).value(0);
    const QByteArray before = bytesOf(path);
    {
        const FullDisk full(before.size() + 5);
        EXPECT_FALSE(file.append({{3, {u"c"_s, "o"}}}, {}));
    }
    EXPECT_EQ(bytesOf(path), before);
    ASSERT_FALSE(file.needsWhole(2));
    ASSERT_TRUE(file.append({{2, {u"bb"_s, "o"}}, {5, {u"e"_s, "o"}}}, {1}));
    EXPECT_TRUE(bytesOf(path).startsWith(before));
    DraftFile again = this->file();
    EXPECT_EQ(again.read().value().drafts, (Drafts{{2, {u"bb"_s, "o"}}, {5, {u"e"_s, "o"}}}));
    EXPECT_TRUE(again.needsWhole(2)) << "what an earlier start left is to be marked";
    EXPECT_TRUE(again.write({}, {}) && !again.needsWhole(0) && again.append({}, {2}) && !QFile::exists(path));
    ASSERT_TRUE(again.append({{2, {u"b"_s, "o"}}}, {}) && !again.needsWhole(1));
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(again.needsWhole(1));
    ASSERT_TRUE(QDir().mkdir(path));
    EXPECT_FALSE(again.append({{3, {u"c"_s, "o"}}}, {}));
    EXPECT_TRUE(again.needsWhole(1) && QDir().rmdir(path));
    EXPECT_TRUE(again.write({{2, {u"z"_s, "o"}}}, {}) && !again.needsWhole(1));
    for (int i = 0; i < 1200 && !again.needsWhole(1); ++i)
        ASSERT_TRUE(again.append({{2, {u"b"_s + QString::number(i), "o"}}}, {}));
    EXPECT_TRUE(again.needsWhole(1)) << "most lines are outdated";
}

// The name of a file that is set aside is longer, here too long for the system.
TEST_F(DraftFileTest, AFileThatCannotBeMovedIsNotWritten) {
    const QString name = QFileInfo(path()).fileName();
    QString deep = in();
    while (deep.size() < 4040)
        deep += QString(std::min<qsizetype>(200, 4041 - deep.size()), u'd') + u'/';
    ASSERT_TRUE(QDir().mkpath(deep));
    QFile damaged(deep + name);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite) && damaged.write("{") == 1 && damaged.flush());
    DraftFile file(deep, source);
    EXPECT_TRUE(file.read().failure().description.contains(u"也不能移开；本次的修改不会暂存："_s));
    EXPECT_TRUE(file.write({{1, {u"z"_s, {}}}}, {}) && file.append({{2, {u"z"_s, {}}}}, {}));
    EXPECT_EQ(QFileInfo(deep + name).size(), 1);
}

TEST_F(DraftFileTest, DraftsAreFoundByAnyPathOfTheFile) {
    ASSERT_TRUE(file().write({{1, {u"z"_s, {}}}}, {}));
    ASSERT_TRUE(QFile::link(source, folder.path(u"link.iso"_s)) && QDir(folder.path()).mkdir(u"sub"_s));
    for (const QString &path : {folder.path(u"link.iso"_s), folder.path(u"sub/../书.iso"_s)})
        EXPECT_EQ(DraftFile(in(), path).read().value().drafts.value(1).record, u"z"_s) << path.toStdString();
    EXPECT_TRUE(DraftFile(in(), folder.path(u"没有.iso"_s)).read().value().drafts.isEmpty());
}

TEST_F(DraftFileTest, AFullDiskIsReportedAndKeepsTheOldDrafts) {
    const QByteArray before = bytesOf(path());
    const Drafts large{{1, {QString(100'000, u'书'), {}}}};
    {
        const FullDisk full(1000);
        EXPECT_FALSE(file().write(large, {}));
        EXPECT_FALSE(file().setAside(large));
    }
    EXPECT_EQ(names(u"*"_s).size(), 1);
    EXPECT_EQ(bytesOf(names(u"*"_s).value(0)), before);
    EXPECT_TRUE(file().write(large, {}));
}

TEST(DraftBook, ARecordThatEqualsTheFileAgainNeedsNoDraft) {
    DraftBook book;
    book.taken(3, u"file"_s, u"one"_s);
    book.taken(3, u"one"_s, u"two"_s);
    EXPECT_TRUE(book.isTaken(3));
    book.settle();
    book.taken(3, u"two"_s, u"file"_s);
    EXPECT_TRUE(!book.isTaken(3) && book.unsettledRows().contains(3) && !book.isUnsettled());
}

TEST(DraftBook, DoesNotRestoreOverNewerOrOtherRecords) {
    const auto listed = [](int row) { return QString(u"file" + QString::number(row)); };
    DraftBook book;
    Drafts left;
    for (int row = 0; row < 6; ++row)
        left.insert(row, {u"old" + QString::number(row), DraftBook::fingerprint(listed(row))});
    left[4].origin = DraftBook::fingerprint(u"another"_s);
    left[5].origin.clear(); // from an earlier version, which did not store it
    book.leave(left);
    book.taken(1, listed(1), u"newer"_s);
    book.taken(2, listed(2), u"imported"_s);
    book.imported([](int row) { return row == 2; });
    const auto done = book.restore(
        [&](int row) { return row == 3 ? std::nullopt : std::optional(row == 2 ? u"imported"_s : listed(row)); }, 0);
    EXPECT_EQ(done.put.keys(), QList<int>{5});
    EXPECT_EQ(done.aside.keys(), (QList<int>{0, 1, 2, 4}));
    EXPECT_EQ(done.newer, 3);
    EXPECT_EQ(done.other, 1);
    EXPECT_EQ(done.waiting, 1);
    EXPECT_EQ(book.left().keys(), QList<int>{3});
    EXPECT_TRUE(book.listed(4, listed(4)).put.isEmpty());
    EXPECT_EQ(book.listed(3, listed(3)).put.keys(), QList<int>{3});
    EXPECT_TRUE(book.left().isEmpty() && !book.isWaiting());
}

TEST(DraftBook, NotesWhatDiffersFromItsFile) {
    const auto none = [](int) { return false; };
    const auto nothing = [](int) { return std::optional<QString>(); };
    const Drafts seven{{7, {u"x"_s, {}}}};
    DraftBook book;
    const std::pair<std::function<void()>, bool> acts[] = {
        {[&] { book.leave({}); }, false},
        {[&] { book.leave(seven); }, true},
        {[&] { EXPECT_TRUE(book.beyondTheEnd(7).isEmpty()) << "nobody wanted them back"; }, false},
        {[&] { EXPECT_EQ(book.restore(nothing, {}).waiting, 1); }, true},
        {[&] { EXPECT_TRUE(book.listed(3, u"r"_s).put.isEmpty()); }, false},
        {[&] { EXPECT_TRUE(book.beyondTheEnd(8).isEmpty()); }, false},
        {[&] { EXPECT_EQ(book.beyondTheEnd(7), seven); }, true},
        {[&] { book.leave(seven); }, true},
        {[&] { EXPECT_EQ(book.listed(7, u"r"_s).put.size(), 1); }, true},
        {[&] { book.taken(7, u"r"_s, u"x"_s); }, false},
        {[&] { book.imported(none); }, false},
        {[&] { book.imported([](int row) { return row == 7; }); }, true},
        {[&] { EXPECT_TRUE(book.giveUp().isEmpty()); }, true},
    };
    for (int number = 0; const auto &[act, differs] : acts) {
        const quint64 before = book.revision();
        book.settle();
        act();
        EXPECT_EQ(book.isUnsettled(), differs) << number;
        EXPECT_EQ(book.revision() > before, differs || !book.unsettledRows().empty()) << number++;
    }
}
