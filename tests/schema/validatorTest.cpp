#include "platform/codepage936.h"
#include "schema/schemaChoice.h"
#include "support/testFolder.h"
#include "validation.h"

using namespace schema;

namespace {

constexpr char json[] = R"({"fields": {
    "LDR": {"positions": {"05": {"codes": {"n": {}}}},
            "types": {"Maps": {"positions": {"06": {"codes": {"f": {}}}}}, "图书": {"pattern": "^.....n"}}},
    "001": {"required": true, "pattern": "^[0-9]{3}$"},
    "005": {"codes": {"x": {}, "old": {"deprecated": true}}},
    "010": {"repeatable": true, "indicator1": {"codes": {" ": {}, "0": {}}}, "indicator2": {"pattern": "[1-3]"},
            "subfields": {"a": {"required": true, "pattern": "^[0-9X-]+$"}, "b": {"repeatable": true}, "c": {"deprecated": true}}},
    "020": {"deprecated": true, "indicator1": null, "subfields": {"a": {"codes": "missing"}, "b": {"codes": "known"}}},
    "100": {"subfields": {"a": {"positions": {"00-01": {"pattern": "^[a-z ]{2}$"}, "02": {"codes": {"1": {}, " ": {}}},
                                              "03-05": {"flags": {"p": {}, "q": {}}}, "06-09": {"flags": {"aa": {}, "bb": {}}}}}}},
    "300": {}},
  "codelists": {"known": {"title": "t", "codes": {"k": "label"}}}})";

QStringList findings(const QString &record, Checks checks = allChecks) {
    Validator validator(schemaOf(json), testDay);
    validator.setChecks(checks);
    const bool hasLeader = record.startsWith(u"LDR");
    return validated(fieldedRecord(hasLeader ? record : QString(u"LDR=     na|" + record)), validator);
}

} // namespace

TEST(Validator, ChecksEveryRuleOfTheSchemaLanguage) {
    const struct {
        QString record, findings;
    } rows[] = {
        {u"001=123|010= 1$a7-X$b1$b2|300=  $zall"_s, {}},
        {u"001=123|999=  $a|0x1=  $a"_s, u"undefinedField 999 999;undefinedField 0x1 0x1"_s},
        {u"001=123|020=  $bk"_s, u"deprecatedField 020"_s},
        {u"001=123|001=456"_s, u"nonrepeatableField 001"_s},
        {u"005=x"_s, u"missingField 001"_s},
        {u"001=12x|005=y"_s, u"patternMismatch 001 12x;undefinedCode 005 y"_s},
        {u"001=123|005=old"_s, u"deprecatedCode 005 old"_s},
        {u"001=123|010=x5$a7"_s, u"invalidIndicator 010^1 x;invalidIndicator 010^2 5"_s},
        {u"001=123|010=$a7"_s, u"invalidIndicator 010^1;invalidIndicator 010^2"_s},
        {u"001=123|010= 1$a7$x$"_s, u"undefinedSubfield 010$x;undefinedSubfield 010"_s},
        {u"001=123|010= 1$a7$c8"_s, u"deprecatedSubfield 010$c"_s},
        {u"001=123|010= 1$a7$a8"_s, u"nonrepeatableSubfield 010$a 8"_s},
        {u"001=123|010= 1$b7"_s, u"missingSubfield 010$a"_s},
        {u"001=123|010= 1$a书7"_s, u"patternMismatch 010$a 书7"_s},
        {u"001=123|100=  $aab1pqpaabb"_s, {}},
        {u"001=123|100=  $aa71pxq书aabc"_s,
         u"patternMismatch 100$a/0-1 a7;invalidFlag 100$a/4 x;invalidFlag 100$a/6-7 书a;"
         "invalidFlag 100$a/8-9 ab"_s},
        {u"001=123|100=  $aab2pqp"_s, u"undefinedCode 100$a/2 2;invalidPosition 100$a/6-9 ab2pqp"_s},
        {u"001=123|020=  $ax$bx"_s, u"deprecatedField 020;undefinedCodelist 020$a x;undefinedCode 020$b x"_s},
        {u"LDR=     xem|001=123"_s, u"undefinedCode LDR/5 x;undefinedCode LDR/6 e"_s},
        {u"LDR=     cam|001=123"_s, u"undefinedCode LDR/5 c;patternMismatch LDR      cam"_s},
    };
    for (const auto &[record, expected] : rows)
        EXPECT_EQ(findings(record).join(u';'), expected) << qPrintable(record);
}

// Each finding of this record disappears with its check, and nothing else does.
TEST(Validator, SwitchesEachCheckOff) {
    const QString record = u"LDR=     cam|005=old|005=x|020=  $ax|010=x1$c8$z$cX|010= 1$a书|100=  $aab2pxp|999="_s;
    const QStringList all = findings(record);
    EXPECT_EQ(all.size(), 18) << qPrintable(all.join(u'\n'));
    for (size_t check = 0; check < checkCount; ++check) {
        const QString name = nameOf(Check(check)).toString();
        QStringList expected = all.filter(QRegularExpression(u"^(?!"_s + name + u" )"_s));
        if (Check(check) == Check::InvalidFieldValue)
            expected = expected.filter(QRegularExpression(uR"(^(?!\w+ (LDR|005 \w))"_s + u")"_s));
        if (Check(check) == Check::InvalidSubfieldValue)
            expected = expected.filter(QRegularExpression(
                uR"(^(undefinedCode [0L]0?[5D]|\w+(Field|Indicator|Subfield) |patternMismatch LDR|deprecatedCode))"_s));
        if (Check(check) == Check::RecordTypes)
            expected.removeAll(u"patternMismatch LDR      cam"_s);
        EXPECT_EQ(findings(record, Checks(allChecks).reset(check)), expected) << qPrintable(name);
    }
}

TEST(Validator, ReadsTheRowsOfTheGridLikeTheRecord) {
    QFile file(QStringLiteral(PROGRAM_FOLDER "/samples/sample.iso"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    int linking = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QString text = platform::decode(line.trimmed());
        marc::FieldedRecord record;
        if (record.take(text) == marc::Cut::None)
            continue;
        const marc::FieldRows rows = marc::showRecord(text).rows;
        RecordView ofRecord, ofRows;
        ofRecord.read(record);
        ofRows.read(rows);
        ASSERT_EQ(ofRecord.fields().size(), ofRows.fields().size());
        for (size_t i = 0; i < ofRows.fields().size(); ++i) {
            const Field &one = ofRecord.fields()[i], &other = ofRows.fields()[i];
            EXPECT_TRUE(one.tag == other.tag && one.indicators == other.indicators && one.value == other.value);
            EXPECT_TRUE(std::ranges::equal(ofRecord.subfields(one), ofRows.subfields(other), [](auto &a, auto &b) {
                return a.code == b.code && a.value == b.value;
            })) << other.tag;
            EXPECT_TRUE(rows[other.element].identifier == other.tagText);
            linking += one.tag / 100 == 4;
        }
    }
    EXPECT_GT(linking, 100);
}

TEST(Finding, IsWordedWithTheNamesOfTheSchema) {
    const auto named =
        schemaOf(R"({"fields": {"100": {"label": "通用", "subfields": {"a": {"label": "数据", "positions":
                                    {"00": {"label": "首位", "codes": {"2": {}}}, "08": {"label": "类型", "codes": {"a": {}}}}}}}}})");
    Validator validator(named, testDay);
    RecordView view;
    const marc::FieldedRecord record = fieldedRecord(u"100=  $a12345678x|100=  $a"_s);
    view.read(record);
    QStringList words;
    for (const Finding &finding : validator.validate(view))
        words.append(wordsOf(finding, *named));
    EXPECT_EQ(words.join(u'|'), u"第0位“1”不是规定的代码（首位）|第8位“x”不是规定的代码（类型）|字段（通用）不可重复|"
                                "内容太短，缺第0位（首位）"_s);
    EXPECT_LE(sizeof(Finding), 64U);
}

TEST(SchemaInForce, KeepsTheLastGoodSchema) {
    const TestFolder folder;
    const platform::Settings settings(folder.path());
    SchemaInForce inForce(settings, folder.path());
    EXPECT_TRUE(!inForce.schema() && inForce.complaint().contains(folder.path() + u"cnmarc-schema.json"));
    folder.file(u"cnmarc-schema.json"_s, R"({"title": "own", "fields": {}})");
    ASSERT_TRUE(inForce.schema());
    EXPECT_EQ(inForce.schema()->title, u"own"_s);
    const QString other = folder.file(u"other.json"_s, R"({"title": "other", "fields": {}, "x": 1})");
    ASSERT_TRUE(chooseSchema(settings, other));
    EXPECT_EQ(inForce.schema()->title, u"own"_s);
    EXPECT_EQ(inForce.complaint(), u"机读格式的模式【"_s + other + u"】不能用：x：这里没有这个键");
    folder.file(u"other.json"_s, R"({"title": "other", "fields": {}})");
    EXPECT_EQ(inForce.schema()->title, u"other"_s);
    EXPECT_TRUE(inForce.complaint().isEmpty());
    ASSERT_TRUE(chooseSchema(settings, {}));
    EXPECT_EQ(inForce.schema()->title, u"own"_s);
}
