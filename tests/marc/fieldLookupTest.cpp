#include "marc/fieldLookup.h"
#include "marc/recordMaking.h"

using namespace marc;

namespace {

// Looks up in the text and in the bytes, which must agree; "-" represents a failure.
QString lookedUp(const RawRecord &record, QStringView wanted, const QByteArray &bytes) {
    const std::optional<QString> value = readZd(record, wanted, {});
    EXPECT_EQ(readZd(record, bytes, wanted, {}), value) << visible(record).toStdString();
    return value.value_or(u"-"_s);
}

TEST(ReadZd, ReturnsTheFirstMatchInDirectoryOrder) {
    const std::pair<QString, QString> cases[] = {
        {u"300=  $a附注"_s, u""_s},
        {u"001=123|200=1 $f张三$a数据库$a另一"_s, u"数据库"_s},
        {u"200=1 $A甲$b乙|200=1 $a丙"_s, u"丙"_s},
        {u"200=1 $a$b乙|200=1 $a丙"_s, u""_s}, // an empty value matches
        {u"200=1 $$a丙"_s, u"-"_s},
        {u"200=1 $a丙$$b"_s, u"丙"_s}, // the failure comes after the match
        {u"200=1 $b乙$|200=1 $a丙"_s, u"丙"_s},
        {u"200=$|200=1 $a丙"_s, u"-"_s},
    };
    for (const auto &[fields, expected] : cases) {
        const RawRecord record = recordOf(fields);
        EXPECT_EQ(lookedUp(record, u"200a", platform::encode(record)), expected) << visible(record).toStdString();
    }
}

TEST(ReadZd, FailsOnlyInPartsThatItMustRead) {
    const QString data = real(u"1 <a题名|"_s);
    const std::pair<QString, QString> cases[] = {
        {u"200000900000"_s, u"题名"_s},
        {u"200   9+  +0"_s, u"-"_s},
        {u"200  +9  0.4"_s, u"题名"_s},
        {u"2000009-0001"_s, u"题"_s}, // starts at the directory's terminator
        {u"300xxxxyyyyy200000900000"_s, u"题名"_s},
        {u"200xxxx00000"_s, u"-"_s},
        {u"200000000000"_s, u"-"_s}, // there is no last character to remove
        {u"200000999999"_s, u"-"_s},
        {u"200-00100000"_s, u"-"_s},
    };
    for (const auto &[directory, expected] : cases) {
        const RawRecord record = recordWithDirectory(directory, data);
        EXPECT_EQ(lookedUp(record, u"200a", platform::encode(record)), expected) << directory.toStdString();
    }
    // Many entries for one long field: the amount read stays proportional to the record.
    const QString twoFields = real(u"1 <b"_s + u"x"_s.repeated(9994) + u"|1 <a题名|"_s);
    for (const auto &[entries, expected] : {std::pair(8, u"题名"_s), std::pair(60, u""_s)}) {
        const RawRecord record = recordWithDirectory(u"200999900000"_s.repeated(entries) + u"200000909999", twoFields);
        EXPECT_EQ(lookedUp(record, u"200a", platform::encode(record)), expected);
    }
    RawRecord noBase = recordWithDirectory(cases[0].first, data);
    noBase.replace(12, 5, u"abcde"_s);
    EXPECT_EQ(lookedUp(noBase, u"200a", platform::encode(noBase)), u"-");
    EXPECT_EQ(lookedUp(u"no field terminator at all, in nearly 00049 characters"_s, u"200a", {}), u"-");
}

TEST(ReadZd, ReportsADamagedDirectoryAndReadsTheReencodedText) {
    const RawRecord record = recordWithDirectory(u"200000800000x"_s, u"data"_s);
    QStringList told;
    EXPECT_EQ(readZd(record, u"200a", [&](const RawRecord &damaged) { told.append(damaged); }), u""_s);
    EXPECT_EQ(told, QStringList{record});
    // A lone lead byte in the title becomes "?" and does not shift the following text.
    QByteArray bytes = platform::encode(recordOf(u"300=  $a_|200=1 $a题_$f甲"_s));
    bytes.replace('_', '\xB0');
    EXPECT_EQ(lookedUp(platform::decode(bytes), u"200a", bytes), u"题?"_s);
}

} // namespace
