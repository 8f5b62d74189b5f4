#include "marc/fieldText.h"

using namespace marc;
using namespace Qt::StringLiterals;

namespace {

// Lists identifiers and values.
QString listed(const platform::Result<FieldRows> &rows) {
    if (!rows)
        return u"refused "_s + rows.failure().description;
    QStringList cells;
    for (const FieldRow &row : rows.value())
        cells.append(row.identifier + u'=' + row.value + (row.subfieldLabel.isEmpty() ? u"" : u"!"));
    return cells.join(u'|');
}

} // namespace

TEST(FieldText, IsReadBackAsItWasWritten) {
    const std::pair<QString, QString> cases[] = {
        {u"200 1#$a红楼梦$f曹雪芹\n"_s, u"200=1#!|$a=红楼梦|$f=曹雪芹"_s},
        {u"005 20260102$x\n"_s, u"005=20260102$x"_s},
        {u"010 ##$dUS{dollar}5$a\n606 0#$A \n"_s, u"010=##!|$d=US$5|$a=|606=0#!|$A= "_s},
        {u"461 #0$12001#$a丛书$$1210##$c京\n"_s, u"461=#0!|$1=2001#$a丛书$|$1=210##$c京"_s}, // embedded fields
        {u"690 0#$1甲$9乙$zA$Z0$0\n"_s, u"690=0#!|$1=甲|$9=乙|$z=A|$Z=0|$0="_s},
        {u"410 #0$a丛书$1x\n"_s, u"410=#0!|$a=丛书|$1=x"_s},
    };
    for (const auto &[text, rows] : cases) {
        const auto read = fieldsOfText(text);
        EXPECT_EQ(listed(read), rows);
        EXPECT_EQ(fieldText(read.value()), text);
    }
    const FieldRows others = {{.identifier = u"000"_s, .value = u"leader"_s},
                              {.identifier = u"???"_s, .value = u"##"_s},
                              {.identifier = u"$a"_s, .value = u"x"_s},
                              {.identifier = u"300"_s, .value = u"##"_s},
                              {.identifier = u"$a"_s, .value = u"a\r\nb"_s}};
    EXPECT_EQ(fieldText(others), u"300 ##$aa  b\n"_s);
}

TEST(FieldText, FromElsewhereIsReadOrRefused) {
    const std::pair<QString, QString> cases[] = {
        {u"\r\n200   $a甲\r\n"_s, u"200=##!|$a=甲"_s},
        {u"200\t1 $a甲\n"_s, u"200=1#!|$a=甲"_s},
        {u"200 \\1  $a甲"_s, u"200=#1!|$a=甲"_s},
        {u"200 $a甲"_s, u"200=##!|$a=甲"_s},
        {u""_s, u"refused 没有文字"_s},
        {u"题名\t$a\t红楼梦"_s, u"refused 开头不是字段号和空格：题名\t$a\t红楼梦"_s},
        {u"20"_s, u"refused 开头不是字段号和空格：20"_s},
        {u"2001#$a甲"_s, u"refused 开头不是字段号和空格：2001#$a甲"_s},
        {u"200 1#$a甲\n001 x"_s, u"refused 头标区和 001 不能粘贴：001 x"_s},
        {u"200 1#甲"_s, u"refused 没有“$”开头的子字段：200 1#甲"_s},
        {u"200"_s, u"refused 没有“$”开头的子字段：200"_s},
        {u"200 123$a甲"_s, u"refused 指示符不是两位：200 123$a甲"_s},
        {u"200 1#$[甲"_s, u"refused “$”后面不是子字段代码：200 1#$[甲"_s},
        {u"200 1#$a甲$"_s, u"refused “$”后面不是子字段代码：200 1#$a甲$"_s},
    };
    for (const auto &[text, rows] : cases)
        EXPECT_EQ(listed(fieldsOfText(text)), rows);
}
