#include "marc/directory.h"
#include "marc/isoLayout.h"
#include "marc/preReadStore.h"
#include "marc/recordCutter.h"
#include "marc/recordMaking.h"
#include "marc/subfields.h"
#include "platform/codepage936.h"
#include "support/dice.h"
#include "support/machine.h"

using namespace marc;
using namespace std::string_literals;

namespace {

TEST(RecordCutter, OneLineGivesAtMostOneRecord) {
    const std::tuple<std::string, QString, qint64> cases[] = {
        // ">" represents the record terminator
        {"a>\r\nb>\r\nc>\r\nd>", u"a>b>c>"_s, 4}, // reading stops after three records
        {"a\r\nb\rc>d\r\ne>\r", u"abc>e>"_s, 4},
        {"\r\n\r\r\na>\r\n\r\nb>\r\n\r\n", u"a>b>"_s, 7},
        {"a\nb>\n", u"a\nb>"_s, 1}, // a line feed alone does not end a line
        {"a\0b>\r"s, QString::fromUtf16(u"a\0b>", 4), 1},
        {">\r\n>", u">>"_s, 2},
        // half a character at the end of a line does not consume the first byte of the next line
        {"\xB0\r\n\xA1>\r\n\xB0\xA1\r\n\xB0\xA2>", u"\uFFFD\uFFFD>啊阿>"_s, 4},
    };
    const TestFolder folder;
    for (const auto &[bytes, expected, lines] : cases) {
        const QString path =
            folder.file(u"records"_s, QByteArray::fromStdString(bytes).replace('>', char(recordTerminator)));
        auto cutter = RecordCutter::open(path);
        QString records;
        while (records.count(u'>') < 3 && cutter.value().next())
            records += visible(cutter.value().record());
        EXPECT_EQ(records, expected) << bytes;
        EXPECT_EQ(lineCount(path).value(), lines);
    }
}

// A record, its memory and the end of the file are the same wherever a block ends.
TEST(RecordCutter, ReadsAcrossTheEndsOfBlocks) {
    constexpr int block = 1 << 19;
    const std::tuple<QByteArray, QByteArray, bool, bool> rows[] = {
        {">\r\n", "", true, true},          {">\r", "", false, true},     {">", "", false, true},
        {"a\r\nb>\r\n", "ab", false, true}, {">x\r\n", "", false, true},  {">\r\r\n", "", false, false},
        {">xy\r\n\r", "", false, false},    {">\r\n\n", "", true, false},
    };
    const TestFolder folder;
    for (const auto &[end, more, isLine, isLast] : rows) {
        for (const int size : {3, block - 6, block - 5, block - 4, block - 3, block - 2, block - 1, block, block + 1}) {
            const QByteArray first(size / 2, 'f'), second(size - size / 2 - 3, 's');
            QByteArray file = first + ">\r\n" + second + end;
            auto cutter = RecordCutter::open(folder.file(u"records"_s, file.replace('>', char(recordTerminator))));
            ASSERT_TRUE(cutter.value().next() && !cutter.value().atEnd()) << size;
            ASSERT_TRUE(cutter.value().next()) << size;
            const QByteArray record = second + more + char(recordTerminator);
            EXPECT_TRUE(cutter.value().bytes() == record) << size << end.toStdString();
            const QByteArray *const memory = cutter.value().lineMemory();
            EXPECT_EQ(memory != nullptr, isLine && second.size() < block - 2) << size << end.toStdString();
            const QByteArray kept = memory ? *memory : QByteArray();
            const QByteArrayView line = cutter.value().bytes();
            EXPECT_EQ(cutter.value().atEnd(), isLast) << size << end.toStdString();
            EXPECT_FALSE(cutter.value().next());
            EXPECT_TRUE(kept.isEmpty() || line == record) << "a copy keeps the bytes";
        }
    }
}

// Beyond a length the cutter searches ahead for the terminator; nothing may be lost or cut.
TEST(RecordCutter, LongPiecesAreWholeOrDropped) {
    constexpr qsizetype longSize = RecordCutter::longestUnchecked + 5'000'000;
    const QByteArray line(longSize, 'x');
    const QByteArray lines = QByteArray(QByteArray(1000, 'x') + "\r\n").repeated(longSize / 1000);
    const TestFolder folder;
    for (const QByteArray &piece : {line, lines}) {
        for (const bool ended : {true, false}) {
            const QByteArray terminated = piece + (ended ? "\x1D" : "") + "z\r\n" + (ended ? "next\x1D\r\n" : "");
            auto cutter = RecordCutter::open(folder.file(u"records"_s, "first\x1D\r\n" + terminated));
            QList<qsizetype> sizes;
            while (cutter.value().next())
                sizes.append(cutter.value().bytes().size());
            const QList<qsizetype> all = {6, piece.count('x') + 1, 5};
            EXPECT_EQ(sizes, ended ? all : all.first(1));
            EXPECT_TRUE(cutter.value().atEnd());
        }
    }
}

TEST(RecordCutter, BuffersALongRecordOnceAndNothingAfterIt) {
    constexpr qint64 size = 60 << 20; // a size at which a buffer that grows by doubling does not have to grow
    const TestFolder folder;
    QFile large(folder.file(u"long.iso"_s, {}));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite) && large.resize(size) && large.seek(size));
    ASSERT_TRUE(large.write("\x1d") == 1 && large.flush() && large.resize(4 * size)); // zeros continue its line
    const qint64 before = peakMemory();
    auto cutter = RecordCutter::open(large.fileName());
    ASSERT_TRUE(cutter.value().next());
    EXPECT_EQ(cutter.value().bytes().size(), size + 1);
    EXPECT_TRUE(cutter.value().atEnd());
    EXPECT_LT(peakMemory() - before, size * 3 / 2);
}

TEST(PreReadStore, OnlyGrowsAndReturnsTheTextForAnyBytes) {
    PreReadStore store;
    for (const auto &[wanted, rows] : {std::pair(5, 20), std::pair(21, 21), std::pair(20, 21)}) {
        store.setRows(wanted);
        EXPECT_EQ(store.rowCount(), rows);
    }
    EXPECT_EQ(store.text(20, 0) + store.text(20, 1) + store.text(20, 2), u"");
    for (const auto &[text, bytes] : {std::pair(u"\uFFFD\uFFFD\x1D"_s, "\xB0\xA1\x1D"), // two lines, decoded separately
                                      {u"数据"_s, ""},
                                      {u"ก字"_s, ""}}) { // a character that the code page lacks
        store.setRecord(0, text, bytes);
        EXPECT_EQ(store.record(0), text);
    }
}

// Titles set in any order: before the record, again after an edit, one that does not occur in the record, one that
// spans two characters, one in the bytes of a removed record.
TEST(PreReadStore, TitlesDoNotChangeWithTheRecord) {
    const auto pieces =
        std::to_array<QString>({u"?"_s, u"题"_s, u"名"_s, u"丂"_s, u"a"_s, u"1"_s, u"\uFFFD"_s, u"ก"_s, u"\xD83D"_s});
    for (unsigned seed = 0; seed < 20; ++seed) {
        Dice dice(seed);
        PreReadStore store;
        std::array<std::array<QString, 2>, 3> model; // title and record
        std::vector<std::pair<int, QString>> replaced;
        for (int step = 0; step < 300; ++step) {
            const int row = dice.below(3);
            auto &[title, record] = model[size_t(row)];
            if (dice.below(2) == 0) {
                if (!record.isEmpty())
                    replaced.emplace_back(row, record);
                record = dice.text<QString>(pieces, 40).left(dice.oneOf(std::array{0, 3, 40}));
                store.setRecord(row, record, platform::isEncodable(record) ? platform::encode(record) : QByteArray());
            } else {
                title = dice.below(3) > 0 ? record.mid(dice.below(record.size() + 1), dice.below(6))
                                          : dice.text<QString>(pieces, 4);
                store.setTitle(row, title);
            }
            for (int at = 0; at < 3; ++at) {
                ASSERT_EQ(store.title(at), model[size_t(at)][0]) << seed << ' ' << step;
                ASSERT_EQ(store.record(at), model[size_t(at)][1]) << seed << ' ' << step;
            }
        }
        for (size_t moment = 0; moment <= replaced.size(); ++moment)
            for (int row = 0; row < 3; ++row) {
                std::vector<QString> held{model[size_t(row)][1]};
                for (size_t at = replaced.size(); at-- > moment;)
                    if (replaced[at].first == row)
                        held.insert(held.begin(), replaced[at].second);
                ASSERT_EQ(store.recordsSince(int(moment), row), held);
            }
        EXPECT_EQ(store.replacements(), int(replaced.size()));
        store.reset();
        EXPECT_EQ(store.title(0) + store.record(0) + QString::number(store.replacements()), u"0");
    }
}

TEST(Directory, OnlyItsLengthIsTested) {
    const QString entry = u"200001200000"_s;
    EXPECT_EQ(viewDirectory(recordWithDirectory({}, {})).count(), 0);
    const RawRecord withTwo = recordWithDirectory(entry + u"CATabcdx    ", u"data"_s);
    const DirectoryView two = viewDirectory(withTwo);
    ASSERT_EQ(two.count(), 2);
    EXPECT_EQ(two.baseAddress, u"00049");
    EXPECT_EQ(two.tag(1) + u'/' + two.length(1) + u'/' + two.start(1), u"CAT/abcd/x    "_s);
    EXPECT_TRUE(viewDirectory(recordWithDirectory(entry + entry + u'x', {})).damaged);
    for (const RawRecord &record : {u""_s, u"short"_s, QString(100, u'x'), real(u"one | in the leader"_s)}) {
        const DirectoryView directory = viewDirectory(record);
        EXPECT_FALSE(directory.hasFieldTerminator || directory.damaged) << record.toStdString();
        EXPECT_EQ(directory.leader, record.left(24));
    }
}

TEST(FieldCutter, CountsBytesFromTheBaseAddress) {
    const FieldCutter cutter(u"01234数据库\uFFFDx"_s); // five digits, six bytes, "?" and "x"
    EXPECT_EQ(cutter.cut(4, 1, 4), u"数据"_s);
    EXPECT_EQ(cutter.cut(5, 4, 99), u"库?x"_s);
    EXPECT_EQ(cutter.cut(5, 1, 3), platform::decode("\xFD\xBE\xDD")); // as stored
    EXPECT_EQ(cutter.cut(5, -5, 3), u"012"_s);
    EXPECT_EQ(cutter.cut(99999, 99999, 9999), u""_s);
    EXPECT_EQ(cutter.cut(5, -6, 3), std::nullopt);
    EXPECT_EQ(cutter.cut(5, 0, -1), std::nullopt);
}

TEST(Subfields, AreCutAtEachDelimiter) {
    const std::pair<QString, QString> cases[] = {
        {u"10"_s, u""_s},
        {u"10<a数据<f张<x"_s, u"a:数据 f:张 x:"_s},
        {u"<a1<a2"_s, u"a:1 a:2"_s},
        {u"10<<a1"_s, u"<:! a:1"_s}, // the code of the first subfield is the delimiter after it
        {u"10<"_s, u":!"_s},
        {u"10<a1<"_s, u"a:1 :"_s}, // no failure after another subfield
        {u"10<a1<<"_s, u"a:1 <:! :"_s},
    };
    for (const auto &[field, expected] : cases) {
        QStringList found;
        const QString text = real(field);
        for (SubfieldWalk part(text); part.next();)
            found.append(visible(part.code().toString()) + u':' + part.value() + (part.negativeLength() ? u"!" : u""));
        EXPECT_EQ(found.join(u' '), expected) << field.toStdString();
    }
}

} // namespace

TEST(FileCounts, CountLinesAndTerminatorsAndNoticeUtf8) {
    const TestFolder folder;
    const QString one = recordOf(u"200=1 $a数据库原理与应用"_s);
    const QString both = one + one + u"\r\n", lines = one + u"\r\n" + one + u"\r\n";
    const std::tuple<QByteArray, int, bool> rows[] = {
        {platform::encode(both), 1, false}, {lines.toUtf8(), 2, true}, {"\xEF\xBB\xBF" + both.toUtf8(), 1, true}};
    for (const auto &[bytes, count, isUtf8] : rows) {
        const FileCounts counts = fileCounts(folder.file(u"a.iso"_s, bytes)).value();
        EXPECT_EQ(counts.lines, count);
        EXPECT_EQ(counts.terminators, 2);
        EXPECT_EQ(counts.looksLikeUtf8, isUtf8) << count;
    }
    EXPECT_FALSE(fileCounts(folder.path(u"none"_s)));
}
