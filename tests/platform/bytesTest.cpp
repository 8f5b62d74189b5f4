// Bytes: counting, keeping, reading and writing them, and the rows that a filtered view shows.
#include "platform/byteArena.h"
#include "platform/byteFile.h"
#include "platform/byteWriter.h"
#include "platform/shownRows.h"
#include "support/dice.h"
#include "support/fullDisk.h"
#include "support/machine.h"
#include "support/testFolder.h"
#include <algorithm>

using namespace platform;

namespace {

TEST(Bytes, AreCountedAndKept) {
    Dice dice(3);
    ByteArena arena;
    std::vector<std::pair<QByteArray, QByteArrayView>> kept;
    for (const int size : {0, 1, 127, 128, 129, 239, 240, 241, 511, 512, 513, 5000, 1 << 18, (1 << 18) + 1, 3 << 20}) {
        QByteArray bytes(size, 'a');
        for (int i = 0; i < size / 3; ++i)
            bytes[dice.below(size)] = 'b';
        EXPECT_EQ(countByte(bytes, 'b'), bytes.count('b')) << size;
        EXPECT_EQ(countByte(QByteArray(size, 'b'), 'b'), size);
        for (int copies = 0; copies < 3; ++copies)
            kept.emplace_back(bytes, arena.keep(bytes));
    }
    for (int i = 0; i < 3000; ++i) {
        const auto text = QByteArray::number(i).repeated(1 + dice.below(60));
        kept.emplace_back(text, arena.keep(text));
    }
    for (const auto &[bytes, view] : kept)
        ASSERT_EQ(view, bytes) << bytes.size();
    std::ranges::sort(kept, std::ranges::less{}, [](const auto &pair) { return pair.second.data(); });
    for (size_t i = 1; i < kept.size(); ++i)
        ASSERT_LE(kept[i - 1].second.end(), kept[i].second.begin()) << "no two share a byte";
}

TEST(ByteReader, ReportsAFileThatChangesWhileItIsRead) {
    const TestFolder folder;
    const QString path = folder.file(u"a"_s, "12345678");
    for (const auto &[change, words] : QList<std::pair<std::function<void()>, QString>>{
             {[] {}, QString()},
             {[&] { folder.file(u"a"_s, "123456789"); }, u"在读取中被改动了"_s},
             {[&] {
                  QFile file(path);
                  EXPECT_TRUE(file.open(QIODevice::ReadWrite) &&
                              file.setFileTime(QFileInfo(path).lastModified().addSecs(5), QFile::FileModificationTime));
              },
              u"在读取中被改动了"_s},
             {[&] { QFile::remove(path); }, u"在读取中不见了"_s}}) {
        if (words == u"在读取中不见了" && !removesOpenFiles())
            continue;
        folder.file(u"a"_s, "12345678");
        auto reader = ByteReader::open(path);
        ASSERT_TRUE(reader);
        char room[8];
        EXPECT_EQ(reader.value().size(), 8);
        EXPECT_EQ(reader.value().read(room, 3).value(), 3);
        EXPECT_EQ(QByteArray(room, 3), "123");
        EXPECT_EQ(reader.value().position(), 3);
        change();
        const auto rest = reader.value().read(room, 8);
        ASSERT_EQ(rest.ok(), words.isEmpty()) << words.toStdString();
        if (!rest) {
            EXPECT_EQ(rest.failure().description, QString(u"文件{" + path + u'}' + words));
            continue;
        }
        EXPECT_EQ(rest.value(), 5);
        EXPECT_EQ(reader.value().position(), 8);
        EXPECT_EQ(reader.value().read(room, 8).value(), 0);
    }
}

// Both writers gather bytes in a buffer of a megabyte.
TEST(Writers, WriteWhatTheyAreGiven) {
    const TestFolder folder;
    Dice dice(4);
    constexpr int buffer = 1 << 20;
    for (const QList<int> &sizes : QList<QList<int>>{{},
                                                     {0},
                                                     {1, 2},
                                                     {buffer - 2, 1},
                                                     {buffer - 1},
                                                     {buffer, 5},
                                                     {buffer + 1},
                                                     {7, 2 * buffer, 3},
                                                     {buffer / 2, buffer / 2 - 4, 1, buffer / 2}}) {
        QByteArray all;
        auto whole = SavedFile::create(folder.path(u"whole"_s));
        auto lines = ByteWriter::create(folder.path(u"lines"_s));
        ASSERT_TRUE(whole && lines);
        for (const int size : sizes) {
            const QByteArray line(size, char('a' + dice.below(20)));
            all += line + "\r\n";
            EXPECT_TRUE(whole.value().write(line) && whole.value().write("\r\n"));
            EXPECT_TRUE(lines.value().writeLine(line));
        }
        EXPECT_FALSE(QFile::exists(folder.path(u"whole"_s)));
        EXPECT_TRUE(whole.value().commit() && lines.value().close());
        EXPECT_TRUE(folder.read(u"whole"_s) == all && folder.read(u"lines"_s) == all) << all.size();
        EXPECT_EQ(lines.value().linesHandedOver(), sizes.size());
        QFile::remove(folder.path(u"whole"_s));
    }
    folder.file(u"lines"_s, "longer than before");
    EXPECT_TRUE(ByteWriter::create(folder.path(u"lines"_s)).value().writeLine("x"));
    EXPECT_EQ(folder.read(u"lines"_s), "x\r\n") << "written by the destructor";
}

// Lines that have a memory of their own, adjacent or not, and lines that are copied.
TEST(Writers, KeepTheOrderOfBothKindsOfLines) {
    const TestFolder folder;
    Dice dice(5);
    for (int round = 0; round < 40; ++round) {
        auto writer = ByteWriter::create(folder.path(u"lines"_s));
        QByteArray memory, all;
        std::vector<std::pair<qsizetype, qsizetype>> places;
        for (int i = dice.below(40); i > 0; --i) {
            places.emplace_back(memory.size(), dice.below(dice.below(4) ? 50 : 90'000));
            memory += QByteArray(places.back().second, char('a' + dice.below(20))) + "\r\n";
        }
        int count = 0;
        for (const auto &[from, size] : places) {
            if (dice.below(6) == 0)
                continue;
            const QByteArrayView line = QByteArrayView(memory).sliced(from, size);
            ASSERT_TRUE(dice.below(5) ? writer.value().writeLine(memory, line) : writer.value().writeLine(line));
            all += line.toByteArray() + "\r\n";
            ++count;
            ASSERT_TRUE(dice.below(9) || (writer.value().flush() && folder.read(u"lines"_s) == all));
        }
        ASSERT_TRUE(writer.value().close());
        ASSERT_TRUE(folder.read(u"lines"_s) == all && writer.value().linesHandedOver() == count);
    }
}

TEST(Writers, HoldTheMemoryOfALineUntilItIsWritten) {
    const TestFolder folder;
    auto writer = ByteWriter::create(folder.path(u"lines"_s));
    const QByteArray memory("one\r\ntwo\r\n");
    ASSERT_TRUE(writer.value().writeLine(memory, QByteArrayView(memory).first(3)));
    ASSERT_TRUE(writer.value().writeLine(memory, QByteArrayView(memory).sliced(5, 3)));
    EXPECT_FALSE(memory.isDetached());
    ASSERT_TRUE(writer.value().flush());
    EXPECT_TRUE(memory.isDetached());
}

TEST(Writers, ReportAFullDiskInEachLaterCall) {
    const TestFolder folder;
    const QByteArray line(998, 'x');
    for (const int gathered : {1, 3000}) {
        auto lines = ByteWriter::create(folder.path(u"lines"_s));
        auto whole = SavedFile::create(folder.path(u"whole"_s));
        ASSERT_TRUE(lines && whole);
        const FullDisk disk(2500);
        bool failed = false;
        for (int i = 0; i < gathered; ++i)
            failed = !lines.value().writeLine(line) || failed;
        EXPECT_EQ(failed, gathered > 1);
        EXPECT_EQ(bool(lines.value().flush()), gathered == 1);
        EXPECT_EQ(bool(lines.value().writeLine(line)), gathered == 1);
        EXPECT_EQ(lines.value().linesHandedOver(), gathered == 1 ? 1 : 2) << "two whole lines fit";
        EXPECT_EQ(bool(lines.value().close()), gathered == 1);
        bool refused = false;
        for (int i = 0; i < 3 * gathered; ++i)
            refused = !whole.value().write(line) || refused;
        EXPECT_EQ(refused, gathered > 1);
        EXPECT_FALSE(whole.value().commit());
    }
    EXPECT_FALSE(QFile::exists(folder.path(u"whole"_s)));
    EXPECT_FALSE(SavedFile::create(folder.path()) || SavedFile::create(folder.path(u"no/file"_s)));
}

// Compared with a list of the shown rows.
TEST(ShownRows, MatchAListOfTheRows) {
    Dice dice(8);
    for (int round = 0; round < 500; ++round) {
        const int rows = dice.below(12);
        ShownRows shown;
        std::vector<int> filter, expected;
        for (int row = 0; row < rows; ++row)
            if (dice.below(3) == 0)
                filter.push_back(row);
        const bool filters = dice.below(5);
        const int kept = dice.below(rows + 1) - 1;
        const bool keptFirst = dice.below(2);
        if (keptFirst)
            shown.keep(kept);
        shown.filter(filters ? std::optional(filter) : std::nullopt);
        if (!keptFirst)
            shown.keep(kept);
        for (int row = 0; row < rows; ++row)
            if (!filters || row == kept || std::ranges::count(filter, row))
                expected.push_back(row);
        ASSERT_EQ(shown.count(rows), int(expected.size()));
        ASSERT_TRUE(shown.kept() == kept && shown.isFiltered() == filters);
        for (int row = 0; row < rows; ++row) {
            const auto place = std::ranges::lower_bound(expected, row);
            ASSERT_EQ(shown.positionOf(row), place - expected.begin());
            ASSERT_EQ(shown.contains(row), place != expected.end() && *place == row);
        }
        for (size_t at = 0; at < expected.size(); ++at)
            ASSERT_EQ(shown.rowAt(int(at)), expected[at]);
    }
}

} // namespace
