#include "marc/recordWriter.h"
#include "marc/directory.h"
#include "marc/recordMaking.h"

using namespace marc;

namespace {

const QDateTime clock(QDate(2026, 3, 9), QTime(8, 5, 7));
const QString mark = u"Norvas20260309080507MarcData|"_s;
const QString leader = u"99999nam0#2299999###450#"_s;

FieldRow row(const QString &identifier, const QString &value) {
    return {{}, {}, identifier, {}, value};
}

// Builds rows from "identifier=value" pieces, after a leader row.
FieldRows rowsOf(const QStringList &pieces) {
    FieldRows rows{row(u"000"_s, u"not read"_s)};
    for (const QString &piece : pieces)
        rows.append(row(piece.section(u'=', 0, 0), piece.section(u'=', 1)));
    return rows;
}

// Returns the directory and the data of the rebuilt record without the constant parts.
QString rebuilt(const FieldRows &rows) {
    const QString text = visible(madeMyMarc(rows, leader, clock));
    EXPECT_EQ(text.mid(24, 12), u"001002900000");
    EXPECT_TRUE(text.contains(u'|' + mark)) << text.toStdString();
    EXPECT_TRUE(text.endsWith(u">"));
    return text.sliced(36).chopped(1).replace(u'|' + mark, u" "_s);
}

TEST(MadeMyMarc, WritesLeaderAndNumbers) {
    const FieldRows none = rowsOf({});
    EXPECT_EQ(visible(madeMyMarc(none, leader, clock)), u"00067nam0 2200037   450 001002900000|"_s + mark + u'>');
    EXPECT_EQ(madeMyMarc(none, {}, clock).left(15), u"000670003700067");
    EXPECT_EQ(madeMyMarc(FieldRows{}, leader, clock), madeMyMarc(none, leader, clock));
    const FieldRows large = rowsOf({u"300=  "_s, u"$a="_s + QString(99'920, u'x')});
    EXPECT_EQ(madeMyMarc(large, leader, clock).left(24), u"nam0 229999900045   450 ");
}

TEST(MadeMyMarc, WritesFieldsByTag) {
    const std::pair<QStringList, QString> cases[] = {
        {{u"300=##"_s, u"$a=甲乙丙丁"_s, u"200=1 "_s, u"$a=题名"_s, u"$f=张"_s, u"001=x"_s, u"005=2# "_s},
         u"005000400029200001300033300001300046 2# |1 <a题名<f张|  <a甲乙丙丁|"_s},
        {{u"701=#0"_s, u"$a=甲"_s, u"CAT=x"_s, u"701=#1"_s, u"$a="_s, u"$b=乙"_s},
         u"701001100029701000700040  0<a甲CATx| 1<b乙|"_s},
        {{u"701=#0"_s, u"701=#1"_s, u"$a=乙"_s}, u" "_s},                    // the first field of a tag ends the search
        {{u"701=#1"_s, u"$a=乙"_s, u"701=#0"_s}, u"701000700029  1<a乙|"_s}, // and so does the last row
        {{u"701=#1"_s, u"$a="_s, u"701=#0"_s, u"$a=甲"_s}, u"701000700029  0<a甲|"_s}, // an empty subfield does not
        {{u"105=##"_s, u"$a=x"_s, u"106=##"_s, u"$a=x"_s, u"110=##"_s, u"$a=x"_s, u"115=##"_s, u"$a=x"_s}, u" "_s},
        {{u"100=##"_s, u"$a=2#$#"_s, u"$b=2#"_s}, u"100001300029   <a2 $ <b2#|"_s},
        {{u"410=#0"_s, u"$1=2001#$a名#$v3"_s, u"$x=#"_s}, u"410002100029  0<12001 <a名 <v3<x |"_s},
        {{u"300=##"_s, u"$a=1#$b"_s, u"=2"_s, u"$c= "_s, u"?=3"_s}, u"300001500029   <a1#$b2<c ?3|"_s},
        {{u" 300=##"_s, u"$a=1"_s, u" 04=x"_s}, u" "_s},
        {{u"999=##"_s, u"$a=1"_s, u"02=x"_s}, u"999000600029   <a1|"_s},
        {{u" 004=x"_s, u"000=y"_s, u" 001=z"_s}, u" 004000200029000000200031 001000200033 x|y|z|"_s},
        {{u"005=x"_s, u"$a=1"_s},
         u"005000200029005000600031 x|x <a1|"_s}, // a control field with subfields is written twice
        {{u"300=1234"_s, u"$a=x"_s, u"301=1"_s, u"$a=x"_s}, u"300000600029301000600037 1234<ax|1 <ax|"_s},
    };
    for (const auto &[pieces, expected] : cases)
        EXPECT_EQ(rebuilt(rowsOf(pieces)), expected) << pieces.join(u' ').toStdString();
}

TEST(MadeMyMarc, TakesIndicatorsFromTheirCell) {
    const std::pair<QString, QString> cases[] = {
        {u""_s, u"  "_s},  {u"1"_s, u"1 "_s},   {u" 1"_s, u"1 "_s},   {u"#1"_s, u" 1"_s},   {u"##"_s, u"  "_s},
        {u"#"_s, u"# "_s}, {u" # "_s, u"# "_s}, {u"   "_s, u"   "_s}, {u"12#"_s, u"12 "_s},
    };
    for (const auto &[cell, expected] : cases)
        EXPECT_EQ(rebuilt(rowsOf({u"300="_s + cell, u"$a=x"_s})), u"300000600029 "_s + expected + u"<ax|")
            << cell.toStdString();
}

TEST(MadeMyMarc, LeavesOutNumbersThatDoNotFit) {
    const auto longest = [](int bytes) {
        return rowsOf({u"300=##"_s, u"$a="_s + QString(bytes - 5, u'x'), u"301=##"_s, u"$a=y"_s});
    };
    EXPECT_EQ(rebuilt(longest(9999)).left(24), u"300999900029301000610028");
    const RawRecord broken = madeMyMarc(longest(10000), leader, clock);
    EXPECT_EQ(broken.mid(36, 20), u"30000029301000610029");
    EXPECT_TRUE(viewDirectory(broken).damaged);
    // a character that the code page lacks counts as one byte, "?", as it will be written
    EXPECT_EQ(rebuilt(rowsOf({u"300=##"_s, u"$a=\u0E01甲"_s})).left(12), u"300000800029");
}

} // namespace
