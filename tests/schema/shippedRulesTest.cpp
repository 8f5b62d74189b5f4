// The schema that the build makes, on sound and wrong records.
#include "platform/codepage936.h"
#include "validation.h"

using namespace schema;

namespace {

const QString book =
    u"LDR=00000nam0 2200000   450 |001=011997000001|005=19970621083928.0|010=  $a978-7-02-000220-7$dCNY59.70"
    u"|100=  $a19970621d1996    em y0chiy50      ea|101=0 $achi|102=  $aCN$b110000"
    u"|105=  $aa   z   000ay|106=  $ar|200=1 $a红楼梦$9hong lou meng$f曹雪芹著|205=  $a第2版"
    u"|210=  $a北京$c人民文学出版社$d1996.12|215=  $a1606页$c图$d20cm|225=2 $a丛书"
    u"|410= 0$12001 $a丛书|517=1 $a石头记|606=0 $a章回小说|690=  $aI242.4$v3"
    u"|701= 0$a曹雪芹$9cao xue qin$4著|801= 0$aCN$bDHTSG$c19970621"_s;

QByteArray bytesOf(const char *path) {
    QFile file(QString::fromUtf8(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

std::shared_ptr<const Schema> builtSchema() {
    static const auto built = schemaOf(bytesOf(BUILT_SCHEMA));
    return built;
}

// Returns the book with other fields in place of those with the same tags; "tag=" alone removes a field.
marc::FieldedRecord bookWith(const QString &pieces) {
    marc::FieldedRecord record = fieldedRecord(book);
    const marc::FieldedRecord other = fieldedRecord(pieces);
    for (const marc::Field &field : other.fields)
        std::erase_if(record.fields, [&field](const marc::Field &own) { return own.tag == field.tag; });
    for (const marc::Field &field : other.fields) {
        if (!field.content.isEmpty())
            record.fields.insert(record.fields.begin() + qsizetype(record.placeFor(field.tag)), field);
    }
    record.leader.replace(6, other.leader.size(), other.leader);
    return record;
}

struct Row {
    QString rule, right, wrong;
};

const QString f100 = u"100=  $a19970621d1996    em y0chiy50      ea"_s;
const QString serial100 = u"100=  $a20010107b19791990em y0chiy50      ea"_s;

// For each shipped rule, a change of the book that the rule allows and one that it reports.
const Row rows[] = {
    {u"入档日期"_s, f100, u"100=  $a19970631d1996    em y0chiy50      ea"_s},
    {u"入档日期在将来"_s, u"100=  $a20260131d1996    em y0chiy50      ea"_s,
     u"100=  $a20260201d1996    em y0chiy50      ea"_s},
    {u"处理时间"_s, u"005=19970621235959.0"_s, u"005=19970621240000.0"_s},
    {u"处理时间在将来"_s, u"005=20260131235959.0"_s, u"005=20260201000000.0"_s},
    {u"出版年与210不符"_s, u"210=  $a北京$c社$d[1996]"_s, u"210=  $a北京$c社$d1997"_s},
    {u"起始年与210、207不符"_s, u"LDR=as|207= 0$a1979,no.1-|"_s + serial100,
     u"LDR=as|207= 0$a1980,no.1-|"_s + serial100},
    {u"出版年颠倒"_s, u"LDR=as|"_s + serial100, u"LDR=as|100=  $a20010107b19791978em y0chiy50      ea"_s},
    {u"出版年在将来"_s, u"100=  $a19970621d2026    em y0chiy50      ea"_s,
     u"100=  $a19970621d2027    em y0chiy50      ea"_s},
    {u"专著的出版日期类型"_s, f100, u"100=  $a19970621a1996    em y0chiy50      ea"_s},
    {u"连续出版物的出版日期类型"_s, u"LDR=as|"_s + serial100, u"LDR=as"_s},
    {u"译作缺原作语种"_s, u"101=1 $achi$ceng"_s, u"101=1 $achi"_s},
    {u"原作有原作语种"_s, u"101=0 $achi"_s, u"101=0 $achi$ceng"_s},
    {u"语种重复"_s, u"101=1 $achi$ceng"_s, u"101=1 $achi$cchi"_s},
    {u"缺出版国别"_s, u"102=  $aUS"_s, u"102="_s},
    {u"缺105字段"_s, u"105=  $aa   z   000ay"_s, u"105="_s},
    {u"缺110字段"_s, u"LDR=as|110=  $aahaz   0yy0"_s, u"LDR=as"_s},
    {u"非连续出版物有110字段"_s, u"LDR=as|110=  $aahaz   0yy0"_s, u"110=  $aahaz   0yy0"_s},
    {u"缺测绘资料编码字段"_s, u"LDR=em|120=  $abayc   uuaa  |123=1 $aa"_s, u"LDR=em|123=1 $aa"_s},
    {u"缺影像资料编码字段"_s, u"LDR=gm|115=  $ax"_s, u"LDR=gm"_s},
    {u"缺录音资料编码字段"_s, u"LDR=jm|126=  $ax"_s, u"LDR=jm"_s},
    {u"缺电子资源编码字段"_s, u"LDR=lm|135=  $ax"_s, u"LDR=lm"_s},
    {u"ISBN错误"_s, u"010=  $a7-02-000220-X"_s, u"010=  $a7-02-000220-1"_s},
    {u"ISBN未分段"_s, u"010=  $a7-02-000220-X"_s, u"010=  $a702000220X"_s},
    {u"ISBN组区号与国别"_s, u"010=  $a0-8044-2957-X|102=  $aCN$b810000"_s, u"010=  $a0-8044-2957-X"_s},
    {u"国别与ISBN组区号"_s, u"102=  $aUS$aCN"_s, u"010=  $a7-02-000220-X|102=  $aUS"_s},
    {u"两种ISBN不符"_s, u"010=  $a7-02-000220-X|010=  $a978-7-02-000220-7"_s,
     u"010=  $a7-02-001259-0|010=  $a978-7-02-000220-7"_s},
    {u"价格"_s, u"010=  $a7-02-000220-X$dCNY39.50(全2册)"_s, u"010=  $a7-02-000220-X$d39.50元"_s},
    {u"ISSN错误"_s, u"011=  $a0253-164X"_s, u"011=  $a0253-1641"_s},
    {u"缺刊号"_s, u"LDR=as|091=  $aCN 11-1250"_s, u"LDR=as"_s},
    {u"缺题名拼音"_s, u"200=1 $a红楼梦$Ahong lou meng$f曹雪芹著"_s, u"200=1 $a红楼梦$f曹雪芹著"_s},
    {u"题名拼音"_s, u"200=1 $a书$9shu$f曹雪芹著"_s, u"200=1 $a书$9书$f曹雪芹著"_s},
    {u"个人责任者不见于200"_s, u"200=1 $a书$9shu$f(清)曹雪芹著"_s, u"200=1 $a书$9shu$f曹著"_s},
    {u"团体责任者不见于200"_s, u"711=02$a人民文学出版社$4编"_s, u"711=02$a作家出版社$4编"_s},
    {u"责任说明没有检索点"_s, u"701=|711=02$a曹雪芹$4著"_s, u"701="_s},
    {u"责任方式"_s, u"701= 0$a曹雪芹$4著"_s, u"701= 0$a曹雪芹"_s},
    {u"责任者拼音"_s, u"701= 0$a曹雪芹$9cao$4著"_s, u"701= 0$a曹雪芹$9曹$4著"_s},
    {u"缺出版地"_s, u"210=  $a[出版地不详]$c社$d1996"_s, u"210=  $c社$d1996"_s},
    {u"出版日期无年份"_s, u"210=  $a北京$c社$d[1996]"_s, u"210=  $a北京$c社$d不详"_s},
    {u"出版日期的写法"_s, u"210=  $a北京$c社$d1996"_s, u"210=  $a北京$c社$d1996年"_s},
    {u"版本说明"_s, u"205=  $a影印本"_s, u"205=  $a二"_s},
    {u"缺载体数量"_s, u"215=  $a2册"_s, u"215=  $d20cm"_s},
    {u"载体数量的写法"_s, u"215=  $a2册(990页)$c图"_s, u"215=  $a990$c图"_s},
    {u"尺寸的写法"_s, u"215=  $a9页$c图$d19×26cm"_s, u"215=  $a9页$c图$d20"_s},
    {u"图表代码与215不符"_s, u"215=  $a9页$c插图"_s, u"215=  $a9页"_s},
    {u"215有图而105没有"_s, u"105=  $ab   z   000ay"_s, u"105=  $ay   z   000ay"_s},
    {u"索引代码与320不符"_s, u"105=  $aa   z   001ay|320=  $a书后附索引"_s, u"105=  $aa   z   001ay|320=  $a有书目"_s},
    {u"320有索引而105没有"_s, u"320=  $a无索引"_s, u"320=  $a书后附索引"_s},
    {u"书目代码与320不符"_s, u"105=  $aa   a   000ay|320=  $a有书目"_s, u"105=  $aa   a   000ay"_s},
    {u"缺丛编检索点"_s, u"410=|461= 0$12001 $a丛书"_s, u"410="_s},
    {u"缺丛编项"_s, u"225=2 $a丛书"_s, u"225="_s},
    {u"缺上层记录的连接"_s, u"LDR=am2|461= 0$12001 $a总集"_s, u"LDR=am2"_s},
    {u"连接字段缺$1"_s, u"454= 0$12001 $a书"_s, u"454= 0$a书"_s},
    {u"嵌入字段"_s, u"454= 0$1001123$12001 $a书"_s, u"454= 0$1200$a书"_s},
    {u"嵌入字段缺题名"_s, u"454= 0$12001 $a书"_s, u"454= 0$12001 $v1"_s},
    {u"其他题名与正题名相同"_s, u"517=1 $a石头记"_s, u"517=1 $a红楼梦"_s},
    {u"缺中图法分类号"_s, u"690=  $aI242.4"_s, u"690="_s},
    {u"中图法分类号"_s, u"690=  $aTP311.13-39"_s, u"690=  $a中国"_s},
    {u"缺主题"_s, u"606=|610=0 $a小说"_s, u"606="_s},
    {u"记录来源不全"_s, u"801= 0$aCN$bA$c20000101"_s, u"801= 0$aCN$bA"_s},
    {u"记录来源的日期"_s, u"801= 0$aCN$bA$c20000229"_s, u"801= 0$aCN$bA$c20010229"_s},
    {u"电子资源地址"_s, u"856=4 $uhttp://a.cn/b"_s, u"856=4 $ua.cn/b"_s},
    {u"题名全半角混用"_s, u"200=1 $aＡＢ书$9shu$f曹雪芹著"_s, u"200=1 $aＡB书$9shu$f曹雪芹著"_s},
    {u"出版项全半角混用"_s, u"210=  $a北京$cＡ社$d1996"_s, u"210=  $a北京$cＡ1社$d1996"_s},
    {u"全角数字"_s, u"215=  $a9页$c图"_s, u"215=  $a９页$c图"_s},
    {u"首尾空格"_s, u"606=0 $a小 说"_s, u"606=0 $a小说 "_s},
    {u"空子字段"_s, u"205=  $a第2版"_s, u"205=  $a第2版$b"_s},
};

} // namespace

TEST(ShippedRules, AllowTheRightRecordAndReportTheWrongOne) {
    Validator validator(builtSchema(), testDay);
    EXPECT_EQ(validated(fieldedRecord(book), validator), QStringList());
    validator.setChecks(Checks().set(size_t(Check::ExternalRule)));
    QSet<QString> left;
    for (const Rule &rule : builtSchema()->rules)
        left.insert(rule.name);
    EXPECT_GE(left.size(), 40);
    for (const auto &[rule, right, wrong] : rows) {
        const auto reports = [&](const QString &pieces) {
            return !validated(bookWith(pieces), validator)
                        .filter(QRegularExpression(u'^' + QRegularExpression::escape(rule) + u' '))
                        .isEmpty();
        };
        EXPECT_FALSE(reports(right)) << qPrintable(rule);
        EXPECT_TRUE(reports(wrong)) << qPrintable(rule);
        EXPECT_TRUE(left.remove(rule)) << qPrintable(rule);
    }
    EXPECT_TRUE(left.isEmpty()) << qPrintable(QStringList(left.values()).join(u' '));
}

// The sample records have no error and at most two hints each. One translation has no original language.
TEST(ShippedRules, AgreeWithTheSamples) {
    Validator validator(builtSchema(), testDay);
    int records = 0, warnings = 0;
    for (const QByteArray &line : bytesOf(PROGRAM_FOLDER "/samples/sample.iso").split('\n')) {
        marc::FieldedRecord record;
        RecordView view;
        if (record.take(platform::decode(line.trimmed())) == marc::Cut::None)
            continue;
        view.read(record);
        const std::vector<Finding> &found = validator.validate(view);
        EXPECT_EQ(std::ranges::count(found, Level::Error, &Finding::level), 0) << records;
        EXPECT_LE(found.size(), 2U) << qPrintable(findingsIn(found, *builtSchema()).join(u';'));
        warnings += int(std::ranges::count(found, Level::Warning, &Finding::level));
        ++records;
    }
    EXPECT_GT(records, 300);
    EXPECT_LE(warnings, 1);
}
