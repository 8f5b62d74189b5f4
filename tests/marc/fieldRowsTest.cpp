#include "marc/fieldRows.h"
#include "marc/recordMaking.h"

using namespace marc;

namespace {

// Returns the rows after the leader row.
QString shown(const RawRecord &record) {
    FieldRows rows = showRecord(record).rows;
    EXPECT_EQ(rows.value(0).identifier, u"000");
    EXPECT_EQ(rows.value(0).value, record.left(24));
    return brief(rows.mid(1));
}

TEST(ShowRecord, MakesTheRowsOfEachKindOfField) {
    const std::pair<QString, QString> cases[] = {
        {u""_s, u""_s},
        {u"001=012001|005= 0 1"_s, u"001=012001 005=#0 1"_s},
        {u"200= 1$a数据 库$f张三"_s, u"200=#1 $a=数据 库 $f=张三"_s},
        {u"606=0 $a甲|200=1 $a乙|606=0 $a丙$x"_s, u"606=0# $a=甲 200=1# $a=乙 606=0# $a=丙 $x="_s},
        {u"CAT=01x$aL"_s, u"CAT=01 $a=L"_s}, // text before the first delimiter is lost
        {u"010="_s, u"010=|"_s},             // the terminator is taken for an indicator
        {u"300=  no delimiter"_s, u"300=##"_s},
        {u"200=1 $a甲$"_s, u"200=1# $a=甲 $="_s},
        {u"200=1 $a甲$$b乙"_s, u"200=1# $a=甲 $<=甲 $b=乙"_s}, // a failed value keeps the previous one
        {u"461= 0$x0$12001 $a丛书 名$v3$1001abc def"_s, u"461=#0 $1=2001#$a丛书 名$v3 $1=001abc def"_s},
        {u"410= 0$a丛书$v3"_s, u"410=#0 $a=丛书 $v=3"_s},
        {u"423= 0$1$12 $1"_s, u"423=#0 $1= $1=2# $1="_s},
        {u"200=1 $12001 $a甲"_s, u"200=1# $1=2001  $a=甲"_s}, // embedded fields exist only in 4XX
    };
    for (const auto &[fields, expected] : cases)
        EXPECT_EQ(shown(recordOf(fields)), expected);
    const FieldRows rows = showRecord(recordOf(u"200=1 $a甲"_s)).rows;
    EXPECT_EQ(rows[0].fieldLabel, u"头标区"_s);
    EXPECT_EQ(rows[1].subfieldLabel, u"指示符"_s);
}

TEST(ShowRecord, AFailingStepKeepsThePreviousValue) {
    const QString data = real(u"1 <a甲<b乙|0 <c丙|"_s); // 11 bytes and 7 bytes
    const std::pair<QString, QString> cases[] = {
        {u"200001100000300000700011"_s, u"200=1# $a=甲 $b=乙 300=0# $c=丙"_s},
        {u"200001100000300xxxx00000"_s, u"200=1# $a=甲 $b=乙 300=1# $a=甲 $b=乙"_s}, // the length of the previous entry
        {u"200001100000300000700x11"_s, u"200=1# $a=甲 $b=乙 300=1# $a=甲"_s},       // the start of the previous entry
        {u"200xxxx00000300000700011"_s, u"200= 300=0# $c=丙"_s},                     // initially 0
        // The cut fails: the rest of the previous field remains.
        {u"200001100000300-00100000"_s, u"200=1# $a=甲 $b=乙 300=b乙"_s},
        {u"2000011000003000011-9999"_s, u"200=1# $a=甲 $b=乙 300=b乙"_s},
        {u"200001100000300001199999"_s, u"200=1# $a=甲 $b=乙 300="_s},
        {u"005001100000006-00100000"_s, u"005=1#<a甲<b乙 006=<a甲<b乙"_s},
    };
    for (const auto &[directory, expected] : cases)
        EXPECT_EQ(shown(recordWithDirectory(directory, data)), expected) << directory.toStdString();

    RawRecord noBase = recordWithDirectory(u"200000500000"_s, data);
    noBase.replace(12, 5, u"x    "_s);
    EXPECT_EQ(shown(noBase), u"200=00"_s); // counted from the start of the record
    EXPECT_EQ(shown(u"no terminator"_s) + shown(u""_s), u""_s);
    const ShownRecord damaged = showRecord(recordWithDirectory(u"2000"_s, u"data"_s));
    EXPECT_TRUE(damaged.damaged && damaged.leader.size() == 24);
    EXPECT_EQ(damaged.rows, FieldRows{FieldRow{}});
}

// Very many entries that point to the same bytes: the result stays proportional to the record.
TEST(ShowRecord, StaysBoundedIfADirectoryRepeatsTheSameBytes) {
    const QString delimiters = u"1 "_s + u"<"_s.repeated(9996) + u'|';
    const std::tuple<QString, QString, bool> cases[] = {
        {u"200999900000"_s.repeated(60), delimiters, true},
        {u"461999900000"_s.repeated(60), u"1 "_s + u"<1"_s.repeated(4998) + u'|', true},
        {u"300999900000"_s.repeated(60), u"  <a"_s + u"甲"_s.repeated(4997) + u'|', true},
        // The cut fails: the previous field remains.
        {u"005999900000"_s + u"006-00100000"_s.repeated(60), u"x"_s.repeated(9998) + u'|', true},
        {u"300999900000"_s.repeated(9), u"  <a"_s + u"x"_s.repeated(9994) + u'|', false},
        {u"300999900000320999909999"_s, delimiters + delimiters, false},
    };
    for (const auto &[directory, data, cutOff] : cases) {
        const RawRecord record = recordWithDirectory(directory, real(data));
        const ShownRecord shown = showRecord(record);
        EXPECT_EQ(shown.cutOff, cutOff) << directory.left(24).toStdString();
        EXPECT_LE(shown.rows.size(), platform::gbkLength(record));
        qsizetype characters = 0;
        for (const FieldRow &row : shown.rows)
            characters += row.value.size();
        EXPECT_LE(characters, 17 * platform::gbkLength(record));
        ShownRecord again;
        showRecord(QByteArrayView(platform::encode(record)), again);
        EXPECT_TRUE(again.rows == shown.rows && again.cutOff == cutOff);
    }
}

} // namespace
