#include "marc/recordReader.h"
#include "marc/recordMaking.h"

using namespace marc;
using namespace std::string_literals;

namespace {

struct FileCase {
    std::string bytes;
    QStringList records;
    qint64 lines;
};

TEST(RecordCutter, OneLineGivesOneRecordAtTheMost) {
    const FileCase cases[] = {
        {"", {}, 0},
        {"a\x1D"
         "b\x1D",
         {u"a\x1D"_s},
         1},
        {"a\x1D\r\nb\x1D\r\nc\x1D", {u"a\x1D"_s, u"b\x1D"_s, u"c\x1D"_s}, 3},
        {"a\r\nb\rc\x1D"
         "d\r\ne\x1D\r",
         {u"abc\x1D"_s, u"e\x1D"_s},
         4},
        {"\r\n\r\r\na\x1D\r\n\r\nb\x1D\r\n\r\n", {u"a\x1D"_s, u"b\x1D"_s}, 7},
        {"a\nb\x1D\n", {u"a\nb\x1D"_s}, 1},   // a line feed alone ends nothing
        {"a\x1D\r\nb\r\nc", {u"a\x1D"_s}, 3}, // the last piece has no terminator
        {"a\0b\x1D\r"s, {QString::fromUtf16(u"a\0b\x1D", 4)}, 1},
        {"\x1D\r\n\x1D", {u"\x1D"_s, u"\x1D"_s}, 2},
        // half a character at the end of a line does not swallow the first byte of the next
        {"\xB0\r\n\xA1\x1D\r\n\xB0\xA1\r\n\xB0\xA2\x1D", {u"\uFFFD\uFFFD\x1D"_s, u"啊阿\x1D"_s}, 4},
    };
    const TestFolder folder;
    for (const FileCase &c : cases) {
        const QString path = folder.file(u"records"_s, QByteArray::fromStdString(c.bytes));
        auto reader = platform::LineReader::open(path);
        ASSERT_TRUE(reader);
        QStringList records;
        cutRecord(reader.value(), [&](const RawRecord &record) {
            records.append(record);
            return true;
        });
        EXPECT_EQ(records, c.records) << visible(QString::fromStdString(c.bytes)).toStdString();
        EXPECT_TRUE(reader.value().atEnd());
        EXPECT_EQ(lineCount(path).value(), c.lines);
    }
}

TEST(RecordCutter, StopsWhereTheConsumerSaysSo) {
    const TestFolder folder;
    auto reader = platform::LineReader::open(folder.file(u"records"_s, "a\x1D\r\nb\x1D\r\nc\x1D\r\n"));
    QStringList records;
    cutRecord(reader.value(), [&](const RawRecord &record) {
        records.append(record);
        return records.size() < 2;
    });
    EXPECT_EQ(records.size(), 2);
    EXPECT_FALSE(reader.value().atEnd());
}

TEST(Directory, OnlyItsLengthIsTested) {
    const QString entry = u"200001200000"_s;
    EXPECT_EQ(decodeDirectory(recordWithDirectory({}, {})).entries.size(), 0);
    const Directory two = decodeDirectory(recordWithDirectory(entry + u"CATabcdx    ", u"data"_s));
    ASSERT_EQ(two.entries.size(), 2);
    EXPECT_EQ(two.baseAddress, u"00049");
    EXPECT_EQ(two.entries[1].tag + u'/' + two.entries[1].length + u'/' + two.entries[1].start, u"CAT/abcd/x    "_s);
    EXPECT_TRUE(decodeDirectory(recordWithDirectory(entry + entry + u'x', {})).damaged);
    for (const RawRecord &record :
         {u""_s, u"short"_s, QString(100, u'x'), u"terminator\x1E in the leader, none behind it"_s}) {
        const Directory directory = decodeDirectory(record);
        EXPECT_FALSE(directory.hasFieldTerminator || directory.damaged) << record.toStdString();
        EXPECT_EQ(directory.leader, record.left(24));
    }
}

TEST(FieldCutter, CountsBytesFromTheBaseAddress) {
    const FieldCutter cutter(u"01234数据库\uFFFDx"_s); // five digits, six bytes, "?" and "x"
    EXPECT_EQ(cutter.cut(4, 1, 4), u"数据"_s);
    EXPECT_EQ(cutter.cut(5, 4, 99), u"库?x"_s);
    EXPECT_EQ(cutter.cut(5, 1, 3), platform::decode("\xFD\xBE\xDD")); // as it comes
    EXPECT_EQ(cutter.cut(5, -5, 3), u"012"_s);
    EXPECT_EQ(cutter.cut(99999, 99999, 9999), u""_s);
    EXPECT_EQ(cutter.cut(5, -6, 3), std::nullopt);
    EXPECT_EQ(cutter.cut(5, 0, -1), std::nullopt);
}

TEST(Subfields, AreCutAtEachDelimiter) {
    const std::pair<QString, QString> cases[] = {
        {u"10"_s, u""_s},
        {u"10$a数据$f张$x"_s, u"a:数据 f:张 x:"_s},
        {u"$a1$a2"_s, u"a:1 a:2"_s},
        {u"10$$a1"_s, u"<:! a:1"_s}, // the code of the first is the delimiter behind it
        {u"10$"_s, u":!"_s},
        {u"10$a1$"_s, u"a:1 :"_s}, // no failure behind another subfield
        {u"10$a1$$"_s, u"a:1 <:! :"_s},
    };
    for (const auto &[field, expected] : cases) {
        QStringList found;
        for (const Subfield &part : splitSubfields(QString(field).replace(u'$', QChar(subfieldDelimiter))))
            found.append(visible(part.code) + u':' + part.value + (part.negativeLength ? u"!" : u""));
        EXPECT_EQ(found.join(u' '), expected) << field.toStdString();
    }
}

} // namespace
