#include "schema/ruleParser.h"
#include "validation.h"

using namespace schema;

namespace {

const QString sample =
    u"LDR=     nam0|001=12|100=  $a20240229d1996|101=0 $achi$aeng|200=1 $a书名$f张三著$g李四译$9shu ming"
    u"|210=  $a北京$d1996.5|300=  $a|701= 0$a张三$4著|701= 0$a王五|702= 0$a李四$4译|999=  |330=  $a\u3000 $b x"_s;

} // namespace

TEST(Condition, HoldsForTheRecordOrNot) {
    const struct {
        QString holds, not_;
    } rows[] = {
        {u"200"_s, u"201"_s},
        {u"999"_s, u"300$a"_s},
        {u"200$a"_s, u"200$b"_s},
        {u"201,200"_s, u"201,202"_s},
        {u"70X$4"_s, u"71X"_s},
        {u"200$*"_s, u"999$*"_s},
        {u"LDR/07 = 'm'"_s, u"LDR/07 = 's'"_s},
        {u"001 = '12'"_s, u"001 = 13"_s},
        {u"101^1 = '0'"_s, u"101^2 = '0'"_s},
        {u"100$a/08 = 'd'"_s, u"100$a/40 = 'd'"_s},
        {u"100$a/09-12 in 210$d"_s, u"100$a/00-03 in 210$d"_s},
        {u"year(210$d) = 1996"_s, u"year(210$d) = year(100$a/00-03)"_s},
        {u"100$a/00-07 < today"_s, u"100$a/00-07 >= today"_s},
        {u"year(210$d) <= thisyear"_s, u"year(210$d) > thisyear"_s},
        {u"count(701) = 2"_s, u"count(701,702) = 2"_s},
        {u"count(701,702,703) = 3"_s, u"count(701$4) > 1"_s},
        {u"count(999) < 100"_s, u"count(999) >= 100"_s},
        {u"length(200$a) = 2"_s, u"length(200$a) > 2"_s},
        {u"001 in 123"_s, u"001 in 345"_s},
        {u"701$a in 200$f"_s, u"every 701$a in 200$f"_s},
        {u"every 701$a,702$a != '赵六'"_s, u"every 701$a != '张三'"_s},
        {u"every 701$b = 'x'"_s, u"701$b = 'x'"_s},
        {u"101$a = 'eng'"_s, u"every 101$a = 'eng'"_s},
        {u"101$a != 'eng'"_s, u"101$a != 101$a"_s},
        {u"200$f ~ /著$/"_s, u"200$f ~ /译/"_s},
        {u"200$f !~ /译/"_s, u"200$f !~ /著/"_s},
        {u"210$d ~ /\\d{4}\\.\\d\\/?/"_s, u"210$d ~ /\\//"_s},
        {u"not 201 and 200"_s, u"not 200 or 201"_s},
        {u"201 or 200 and 101"_s, u"201 or 200 and 102"_s},
        {u"(201 or 200) and 101"_s, u"(201 or 200) and 102"_s},
        {u"not not 200"_s, u"not (200 or 201)"_s},
        {u"非 201 且 每个 200$a 是 han"_s, u"个数(701)=3 或 200$a见于200$f"_s},
        {u"330$a is blank"_s, u"330$b is blank"_s},
        {u"100$a/00-07 is date"_s, u"100$a/01-08 is date"_s},
        {u"200$a < 5 or 200$a > 5 or 200"_s, u"200$a < 5 or 200$a > 5"_s},
    };
    const auto holds = [](const QString &condition) {
        const QByteArray json = R"({"fields": {}, "rules": [{"class": "r", "then": ")" +
                                QString(condition).replace(u'\\', u"\\\\"_s).toUtf8() + R"("}]})";
        Validator validator(schemaOf(json), testDay);
        validator.setChecks(Checks().set(size_t(Check::ExternalRule)));
        return validated(fieldedRecord(sample), validator).isEmpty();
    };
    for (const auto &[yes, no] : rows) {
        EXPECT_TRUE(holds(yes)) << qPrintable(yes);
        EXPECT_FALSE(holds(no)) << qPrintable(no);
    }
}

TEST(Condition, IsRefusedWithThePlace) {
    const struct {
        QString condition, fault;
    } rows[] = {
        {{}, u"第1个字符：这里应有字段"_s},
        {u"200 200"_s, u"第5个字符：这里应当结束"_s},
        {u"200$a ="_s, u"第8个字符：这里应有字段"_s},
        {u"(200"_s, u"第5个字符：缺少“)”"_s},
        {u"200 = 'x'"_s, u"写明子字段"_s},
        {u"every 200"_s, u"第10个字符：这里应有比较"_s},
        {u"count(200)"_s, u"这里应有比较"_s},
        {u"200$a is nonsense"_s, u"第10个字符：is后面没有“nonsense”"_s},
        {u"200$a in today"_s, u"in后面应为"_s},
        {u"200$a ~ 'x'"_s, u"第9个字符：这里应有 /正则"_s},
        {u"200$a = 'x"_s, u"第9个字符：后面的引号"_s},
        {u"200$ab"_s, u"第4个字符：“$ab”看不懂"_s},
        {u"200$a & 201"_s, u"第7个字符：“& 201”看不懂"_s},
        {u"100$a/08-07 = 'x'"_s, u"起止颠倒"_s},
        {QString(40, u'(') + u"200", u"太多层"_s},
        {QString(3000, u' '), u"条件太长"_s},
    };
    for (const auto &[condition, fault] : rows) {
        const auto parsed = parseCondition(condition);
        ASSERT_FALSE(parsed.ok()) << qPrintable(condition);
        EXPECT_TRUE(parsed.failure().description.contains(fault)) << qPrintable(parsed.failure().description);
    }
}

TEST(Rule, IsCheckedForEachFieldAndNamesThePlace) {
    Validator validator(schemaOf(R"({"fields": {}, "rules": [
        {"class": "each", "each": "70X", "then": "70X$4"},
        {"class": "value", "if": "200", "then": "every 701$a in 200$f"},
        {"class": "why", "if": "210$d", "then": "205"},
        {"class": "missing", "then": "690$a"},
        {"class": "maps", "types": ["测绘资料"], "then": "690$a"},
        {"class": "books", "types": ["Books"], "then": "690$a"},
        {"class": "leader", "each": "LDR", "then": "690$a"}, {"class": "tens", "each": "XX2", "then": "X02$a = 'x'"}]})"),
                        testDay);
    validator.setChecks(Checks().set(size_t(Check::ExternalRule)));
    RecordView view;
    const marc::FieldedRecord record = fieldedRecord(sample);
    view.read(record);
    const std::vector<Finding> &found = validator.validate(view);
    EXPECT_EQ(findingsIn(found, validator.schema()).join(u';'),
              u"each 701;value 701$a;why 210$d;missing 690;books 690;leader LDR;tens 702$a"_s);
    ASSERT_EQ(found.size(), 7U);
    EXPECT_TRUE(found[0].occurrence == 2 && found[0].element == 8 && found[1].occurrence == 2 && found[1].element == 8);
    EXPECT_TRUE(found[3].occurrence == 0 && found[3].element == -1 && found[3].level == Level::Warning);
}

TEST(Rule, IsGivenUpWhenItTakesTooLong) {
    Validator validator(schemaOf(R"({"fields": {}, "rules": [{"class": "slow", "then": "every 300$a in 300$a"},
        {"class": "pattern", "then": "not 300$a ~ /^(b+)+$/"}, {"class": "next", "then": "200"},
        {"class": "codes", "then": "300$a in 300$b"}, {"class": "tags", "then": "300$a in 4XX$b"}]})"),
                        testDay);
    validator.setChecks(Checks().set(size_t(Check::ExternalRule)).set(size_t(Check::GivenUp)));
    QString fields = u"300=  $a"_s + QString(100, u'b') + u'c';
    for (int i = 0; i < 5000; ++i)
        fields += u"|300=  $a"_s + QString::number(i);
    EXPECT_EQ(validated(fieldedRecord(fields), validator).join(u';'),
              u"givenUp ;givenUp ;next 200;givenUp ;givenUp "_s);
}
