// Random changes, imports, restarts, partial and failed writes, compared with maps of records by row.
#include "workspace/draftStore.h"
#include "support/dice.h"
#include "support/testFolder.h"

using namespace workspace;
using Records = QMap<int, marc::RawRecord>;

namespace {

Records recordsOf(const Drafts &drafts) {
    Records records;
    for (auto draft = drafts.cbegin(); draft != drafts.cend(); ++draft)
        records.insert(draft.key(), draft->record);
    return records;
}

struct DraftStoreTest : testing::Test {
    static constexpr int rows = 6;
    const TestFolder folder;
    const QString in = folder.path(u"drafts/"_s), source = folder.file(u"a.iso"_s, "records");
    DraftStore store;
    Records file, list;    // the records of the file, and as the list holds them
    Records changed, left; // drafts of this session and of the one before
    std::set<int> touched; // rows changed in this session, imported ones too
    std::optional<DraftStore::Grid> grid;

    void SetUp() override {
        ASSERT_TRUE(QDir().mkpath(in));
        for (int row = 0; row < rows; ++row)
            file.insert(row, u"file"_s + QString::number(row));
        EXPECT_FALSE(store.hasBegun());
        start();
    }
    void start() {
        list = file;
        touched.clear();
        store.begin(source);
        EXPECT_TRUE(store.hasBegun() && !store.isOpen() && !store.open(platform::Failure{u"no folder"_s}));
        const auto opened = store.open(in);
        ASSERT_TRUE(opened && store.isOpen());
        EXPECT_EQ(opened.value().offered, left.size());
        EXPECT_EQ(opened.value().isDue, !opened.value().words.isEmpty()) << "older ones were set aside";
    }
    void take(int row, const marc::RawRecord &record) {
        store.book().taken(row, list[row], record);
        list[row] = record;
        touched.insert(row);
        changed.remove(row);
        if (record != file[row])
            changed.insert(row, record);
    }
    Records newest() const {
        Records records = changed;
        if (grid)
            records.insert(grid->draft.row, grid->draft.record);
        return records;
    }
    void write(size_t most) {
        do
            ASSERT_TRUE(store.write(grid, most));
        while (!store.book().unsettledRows().empty());
        const auto found = DraftFile(in, source).read();
        ASSERT_TRUE(found);
        Records expected = left, older;
        const Records own = newest();
        for (auto record = own.cbegin(); record != own.cend(); ++record) {
            if (left.contains(record.key()))
                older.insert(record.key(), left[record.key()]);
            expected.insert(record.key(), *record);
        }
        EXPECT_EQ(recordsOf(found.value().drafts), expected);
        EXPECT_EQ(recordsOf(found.value().older), older);
    }
    void restore(int read) {
        const auto restored =
            store.book().restore([&](int row) { return row < read ? std::optional(list[row]) : std::nullopt; },
                                 grid ? std::optional(grid->draft.row) : std::nullopt);
        Records put, waiting;
        int newer = 0;
        for (auto draft = left.cbegin(); draft != left.cend(); ++draft) {
            if (draft.key() >= read)
                waiting.insert(draft.key(), *draft);
            else if (touched.contains(draft.key()) || (grid && grid->draft.row == draft.key()))
                ++newer;
            else
                put.insert(draft.key(), *draft);
        }
        EXPECT_EQ(restored.put, put);
        left = waiting;
        for (auto record = put.cbegin(); record != put.cend(); ++record)
            take(record.key(), *record);
        const QString words = store.finish(restored);
        EXPECT_EQ(words.contains(u"已恢复 %1 条"_s.arg(put.size())), !put.isEmpty());
        EXPECT_EQ(words.contains(u"%1 条的记录还没有读出"_s.arg(waiting.size())), !waiting.isEmpty());
        EXPECT_EQ(words.contains(u"%1 条本次已另改"_s.arg(newer)), newer > 0) << words.toStdString();
    }
};

} // namespace

TEST_F(DraftStoreTest, TheFileHoldsTheDraftsOfBothSessions) {
    Dice dice(17);
    for (int act = 0; act < 1500 && !HasFailure(); ++act) {
        const int row = dice.below(rows);
        const marc::RawRecord text = QString::number(act);
        switch (dice.below(12)) {
        case 0:
        case 1:
        case 2:
            take(row, dice.below(4) ? text : file[row]);
            break;
        case 3:
            grid = DraftStore::Grid{.draft = {row, text, list[row]}, .untimed = text};
            break;
        case 4:
            grid.reset();
            break;
        case 5:
            store.book().imported([&](int each) { return each <= row; });
            changed.removeIf([&](Records::iterator each) { return each.key() <= row; });
            break;
        case 6: // the folder is unavailable; the next write is complete
            ASSERT_TRUE(QDir().rename(in, folder.path(u"elsewhere"_s)));
            std::ignore = store.write(grid, 9);
            ASSERT_TRUE(QDir().rename(folder.path(u"elsewhere"_s), in));
            break;
        case 7:
            restore(dice.below(rows + 1));
            break;
        case 8:
            EXPECT_EQ(store.giveUp().startsWith(u"丢弃了 %1 条修改，另存为"_s.arg(left.size())), !left.isEmpty());
            left.clear();
            break;
        case 9: {
            write(9);
            const Records own = newest();
            for (auto record = own.cbegin(); record != own.cend(); ++record)
                left.insert(record.key(), *record);
            changed.clear();
            grid.reset();
            start();
            break;
        }
        default:
            write(1 + size_t(dice.below(3)));
        }
        EXPECT_EQ(recordsOf(store.book().left()), left) << act;
        EXPECT_EQ(store.book().takenCount(), changed.size()) << act;
    }
}
