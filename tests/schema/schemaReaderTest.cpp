#include "validation.h"

using namespace schema;

TEST(SchemaReader, NamesTheKeyAndTheReason) {
    const struct {
        QByteArray json;
        QString fault;
    } rows[] = {
        {"", u"不是JSON，第1个字节"_s},
        {R"({"fields": )", u"不是JSON，第"_s},
        {"[]", u"最外层应为 {…}"_s},
        {"{}", u"fields：缺少这个键"_s},
        {R"({"fields": []})", u"fields：应为 {…}"_s},
        {R"({"fields": {}, "x": 1})", u"x：这里没有这个键"_s},
        {R"({"fields": {}, "family": "pica"})", u"family：应为“marc”"_s},
        {R"({"fields": {"20": {}}})", u"fields.20：字段号应为三位数字或“LDR”"_s},
        {R"({"fields": {"200": 1}})", u"fields.200：应为 {…}"_s},
        {R"({"fields": {"200": {"occurrence": "01"}}})", u"fields.200.occurrence：这里没有这个键"_s},
        {R"({"fields": {"200": {"required": "yes"}}})", u"fields.200.required：应为 true 或 false"_s},
        {R"({"fields": {"200": {"tag": "201"}}})", u"fields.200.tag：应与上一层的键相同"_s},
        {R"({"fields": {"200": {"total": -1}}})", u"fields.200.total：应为不小于0的整数"_s},
        {R"({"fields": {"200": {"subfields": {}, "pattern": "x"}}})", u"fields.200.subfields：有子字段的字段"_s},
        {R"({"fields": {"001": {"indicator1": {}}}})", u"fields.001.indicator1：控制字段没有指示符"_s},
        {R"({"fields": {"200": {"indicator1": {"codes": {"": {}}}}}})",
         u"fields.200.indicator1.codes.：代码不能为空"_s},
        {R"({"fields": {"200": {"subfields": {"ab": {}}}}})", u"fields.200.subfields.ab：子字段代码应为"_s},
        {R"({"fields": {"200": {"subfields": {"a": {"code": "b"}}}}})", u"fields.200.subfields.a.code：应与"_s},
        {R"({"fields": {"200": {"subfields": {"a": {"pattern": "("}}}}})",
         u"fields.200.subfields.a.pattern：正则表达式有误"_s},
        {R"({"fields": {"001": {"pattern": ""}}})", u"fields.001.pattern：应为不空的文字"_s},
        {R"({"fields": {"001": {"positions": {"1-": {}}}}})", u"fields.001.positions.1-：不是字符位"_s},
        {R"({"fields": {"001": {"positions": {"03-01": {}}}}})", u"fields.001.positions.03-01：不是字符位"_s},
        {R"({"fields": {"001": {"positions": {"01-03": {}, "03": {}}}}})",
         u"fields.001.positions：字符位3与前面的重叠"_s},
        {R"({"fields": {"001": {"positions": {"01": {"end": 2}}}}})", u"fields.001.positions.01.end：应与字符位相同"_s},
        {R"({"fields": {"001": {"positions": {"01": {"flags": {"a": {}, "bb": {}}}}}}})",
         u"01.flags：各代码的长度应相同"_s},
        {R"({"fields": {"001": {"codes": {"a": 1}}}})", u"fields.001.codes.a：应为 {…} 或文字"_s},
        {R"({"fields": {"001": {"codes": {"a": {"code": "b"}}}}})", u"fields.001.codes.a.code：应与"_s},
        {R"({"fields": {"LDR": {"types": {"Maps": {"subfields": {}}}}}})",
         u"fields.LDR.types.Maps.subfields：这里没有"_s},
        {R"({"fields": {}, "codelists": {"l": {"codes": {}, "x": ""}}})", u"codelists.l.x：这里没有这个键"_s},
        {R"({"fields": {}, "rules": [{"then": "200", "levle": "错误"}]})", u"rules[0].levle：这里没有这个键"_s},
        {R"({"fields": {}, "rules": ["x", {"then": "200$a ~ /(/"}]})", u"rules[1]：then：第9个字符：正则表达式有误"_s},
        {R"({"fields": {}, "rules": [{"class": "x", "then": "200"}, {"class": "x", "then": "201"}]})",
         u"rules[1].class：与前"_s},
        {R"({"fields": {}, "rules": [{"then": "200", "level": "x"}]})", u"rules[0]：level：应为"_s},
        {R"({"fields": {}, "rules": [{"then": "200", "types": ["x"]}]})", u"rules[0]：types：没有“x”这种"_s},
        {R"({"fields": {}, "rules": [{"then": "200", "each": "200$a"}]})", u"rules[0]：each：应为一个字段"_s},
    };
    for (const auto &[json, fault] : rows) {
        const auto read = readSchema(json);
        ASSERT_FALSE(read.ok()) << json.data();
        EXPECT_TRUE(read.failure().description.contains(fault)) << qPrintable(read.failure().description);
    }
}

TEST(SchemaReader, IgnoresRulesOfOtherProgramsAndKeepsTheirKeys) {
    const auto schema = schemaOf(R"({"fields": {"200": {"checks": "x", "subfields": {"a": {"rules": ["y"]}}}},
        "checks": ["z"], "rules": ["in words", {"description": "also"}, {"then": "200"}]})");
    EXPECT_EQ(schema->ignored.join(u' '), u"fields.200.subfields.a.rules fields.200.checks rules[0] rules[1] checks"_s);
    EXPECT_EQ(schema->rules.size(), 1U);
}
