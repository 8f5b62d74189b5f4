#include "platform/textFile.h"
#include "platform/byteWriter.h"
#include "support/dice.h"
#include "support/fullDisk.h"
#include "support/testFolder.h"

using namespace platform;

namespace {

struct TextFileTest : testing::Test {
    TestFolder folder;
    QString path(const QString &name) const { return folder.path(name); }
    QString file(const QByteArray &bytes) const { return folder.file(u"file"_s, bytes); }
};

QList<QByteArray> linesOf(const QString &path) {
    QList<QByteArray> lines;
    auto reader = LineReader::open(path);
    while (!reader.value().atEnd())
        lines.append(reader.value().readLine().toByteArray());
    EXPECT_TRUE(reader.value().readLine().isEmpty());
    for (int read = 0; read < 2; ++read) { // from the end, and after one line
        reader.value().rewind();
        EXPECT_EQ(reader.value().readLine(), lines.value(0));
    }
    return lines;
}

TEST_F(TextFileTest, LinesEndAtCarriageReturnsAcrossBlocks) {
    const std::pair<QByteArray, QList<QByteArray>> cases[] = {
        {"", {}},
        {"x", {"x"}},
        {"\r", {""}},
        {"\r\nx", {"", "x"}},
        {"\r\n\r\nx\n", {"", "", "x\n"}},
        {"\rx\r\n", {"", "x"}},
        {"\nx\r\n\n", {"\nx", "\n"}},
        {"\r\r\n\r", {"", "", ""}},
    };
    constexpr int block = 1 << 19; // the size of a read
    for (const int before : {0, 1, block - 4, block - 3, block - 2, block - 1, block, 2 * block - 1}) {
        for (const auto &[tail, expected] : cases) {
            const QByteArray first(before, 'a');
            QList<QByteArray> lines = expected;
            if (before && lines.isEmpty())
                lines.append(first);
            else if (before)
                lines.first().prepend(first);
            const QString path = file(first + tail);
            EXPECT_TRUE(linesOf(path) == lines) << before << ' ' << tail.toPercentEncoding().toStdString();
            const LineCount counted = countLines(path, 'a').value();
            EXPECT_EQ(counted.lines, lines.size()) << before << ' ' << tail.toPercentEncoding().toStdString();
            EXPECT_TRUE(counted.marks == before &&
                        counted.beginning ==
                            QByteArray(first + tail).first(std::min<qsizetype>(before + tail.size(), 1 << 16)));
        }
    }
}

// Compared with the whole file; the memory of earlier blocks stays as it was.
TEST_F(TextFileTest, BlocksConsistOfWholeLinesAndKnowWhatFollows) {
    Dice dice(12);
    for (int round = 0; round < 20; ++round) {
        QByteArray all(3 << 17, 'a');
        for (int i = dice.below(40); i > 0; --i)
            all +=
                QByteArray(dice.below(90'000), 'b') + dice.oneOf(QByteArrayList{"\r\n", "\r\n", "\n", "\r", "x", "y"});
        FileBlocks blocks = FileBlocks::open(file(all)).value();
        std::vector<std::pair<QByteArray, QByteArray>> held;
        for (int pass = 0; pass < 2; ++pass) {
            qsizetype at = 0;
            bool ended = false;
            while (!ended && blocks.next()) {
                const QByteArray block = blocks.bytes().toByteArray();
                ASSERT_TRUE(block == all.sliced(at, block.size()));
                at += block.size();
                ASSERT_TRUE(at == all.size() || block.endsWith("\r\n") || !block.contains("\r\n"));
                if (dice.below(2))
                    held.emplace_back(blocks.memory(), QByteArray(blocks.memory().constData(), blocks.memory().size()));
                for (const char wanted : {'x', 'y', 'x'}) {
                    const bool follows = all.indexOf(wanted, at) >= 0;
                    if (ended || (!follows && dice.below(3)))
                        continue;
                    ASSERT_EQ(blocks.restHas(wanted), follows);
                    ended = !follows;
                }
            }
            ASSERT_TRUE(blocks.bytes().isEmpty() && !blocks.fault() && (ended || at == all.size()));
            if (pass == 0)
                blocks.rewind();
        }
        for (const auto &[memory, bytes] : held)
            ASSERT_TRUE(memory == bytes);
    }
}

TEST_F(TextFileTest, AFullDiskKeepsTheOldFile) {
    const QString old = file("what stood here before");
    ASSERT_TRUE(QFile::link(old, path(u"link"_s)));
    ASSERT_TRUE(QFile::setPermissions(old, QFile::ReadOwner | QFile::WriteOwner));
    for (const QString &name : {old, path(u"link"_s)}) {
        const FullDisk disk(100);
        EXPECT_FALSE(writeTextFile(name, QString(1'000, u'x')));
        EXPECT_EQ(readTextLines(old).value(), QStringList{u"what stood here before"_s});
    }
    ASSERT_TRUE(writeTextFile(path(u"link"_s), u"甲\r\n乙\nก"_s));
    EXPECT_TRUE(QFileInfo(path(u"link"_s)).isSymLink());
    EXPECT_EQ(readTextLines(old).value(), (QStringList{u"甲"_s, u"乙\n?"_s}));
    EXPECT_FALSE(QFile::permissions(old).testFlag(QFile::ReadOther));
    EXPECT_EQ(QFileInfo(old).dir().entryList(QDir::Files | QDir::Hidden).size(), 2) << "no temporary file is left";
}

} // namespace
