#include "platform/codepage936.h"
#include "support/testFolder.h"
#include "tools/recordAssembler.h"
#include "tools/recordGenerator.h"
#include "tools/taggedText.h"

namespace {

struct Build {
    int exitCode;
    QByteArray complaint;
    QList<QByteArray> files; // the contents of the folder afterwards, by name: the schema, then the field list
};

Build configurationOf(const QByteArray &format, const QByteArray &rules, const QByteArray &codes = {}) {
    const TestFolder sources;
    const TestFolder target;
    QProcess tool;
    tool.start(QStringLiteral(PROGRAM_FOLDER "/makeConfiguration"),
               {target.path(), sources.file(u"cnmarc.txt"_s, format), sources.file(u"template.txt"_s, rules),
                sources.file(u"codes.txt"_s, codes), sources.file(u"rules.json"_s, R"([{"class":"x"}])")});
    EXPECT_TRUE(tool.waitForFinished());
    Build build{tool.exitCode(), tool.readAllStandardError(), {}};
    for (const QString &name : QDir(target.path()).entryList(QDir::Files, QDir::Name))
        build.files.append(target.read(name));
    return build;
}

// Encodes a text in which "$", "|" and "%" represent the separators.
QByteArray marked(const QString &text) {
    return platform::encode(text).replace('$', '\x1F').replace('|', '\x1E').replace('%', '\x1D');
}

} // namespace

TEST(MakeConfiguration, WritesFourFilesAndTheSchema) {
    const Build build =
        configurationOf("; 说明\n001 标识号 !\n\n200 题名 项 +\r\n^1 检索 = 0:无 #:空\n$a 正题名 !+ /x y/\n"
                        "$A 拼音\n??? 自定义\n",
                        "说明\n[必备子字段]\n200 题名 a\n\n[不能重复的子字段]\n200$a\n",
                        "[LDR]\n05 状态 = n:新 c\n[200$a]\n00-01 图 * a:图 #\n");
    EXPECT_EQ(build.complaint, QByteArray());
    ASSERT_EQ(build.files.size(), 5);
    EXPECT_EQ(build.files[1], platform::encode(u"001 标识号\r\n200 题名 项\r\n??? 自定义\r\n"));
    EXPECT_EQ(build.files[2], platform::encode(u"[001]\r\n[200]\r\n$a 正题名\r\n$A 拼音\r\n\r\n"));
    EXPECT_EQ(build.files[3], platform::encode(u"[001] 标识号\r\n[200] 题名 项\r\n$a 正题名\r\n$A 拼音\r\n\r\n"));
    EXPECT_EQ(build.files[4], platform::encode(u"说明\r\n[必备子字段]\r\n200 题名 a\r\n\r\n"
                                               "[不能重复的子字段]\r\n200$a\r\n"));
    const QJsonObject schema = QJsonDocument::fromJson(build.files[0]).object();
    EXPECT_EQ(schema[u"family"], u"marc"_s);
    EXPECT_EQ(schema[u"rules"].toArray().size(), 1);
    const QJsonObject fields = schema[u"fields"].toObject(), title = fields[u"200"].toObject();
    EXPECT_EQ(fields.keys().filter(QRegularExpression(u"^[^9]*$"_s)), QStringList({u"001"_s, u"200"_s, u"LDR"_s}));
    EXPECT_TRUE(fields[u"019"][u"repeatable"].toBool() && fields.contains(u"999"));
    EXPECT_EQ(fields[u"LDR"][u"positions"][u"05"][u"codes"].toObject().keys(), QStringList({u"c"_s, u"n"_s}));
    EXPECT_TRUE(title[u"repeatable"].toBool() && !title[u"required"].toBool() && fields[u"001"][u"required"].toBool());
    EXPECT_EQ(title[u"indicator1"][u"codes"].toObject().keys(), QStringList({u" "_s, u"0"_s}));
    EXPECT_EQ(title[u"indicator2"][u"codes"].toObject().keys(), QStringList(u" "_s));
    EXPECT_EQ(title[u"subfields"][u"a"][u"pattern"], u"x y"_s);
    EXPECT_EQ(title[u"subfields"][u"a"][u"positions"][u"00-01"][u"flags"][u"a"][u"label"], u"图"_s);
}

TEST(MakeConfiguration, NamesTheLineThatIsMalformedAndWritesNothing) {
    const QByteArray good = "200 题名\n$a 正题名\n";
    const struct {
        QByteArray format, rules, complaint, codes = {};
    } cases[] = {
        {"好\n" + good, {}, "cnmarc.txt: line 1: neither"},
        {good + "[210] 出版\n", {}, "line 3: neither"},
        {good + "$b  两个空格\n", {}, "line 3: neither"},
        {good + "210 \n", {}, "line 3: neither"},
        {good + "$a 又一个\n", {}, "line 3: the field has this code already: $a 又一个"},
        {good + "101 语种\n$a 语种\n", {}, "line 3: the field must follow 200, and once"},
        {good + good, {}, "line 3: the field must follow 200, and once"},
        {"$a 正题名\n", {}, "line 1: no field above"},
        {"001 标识号\n$a 标识号\n", {}, "line 2: no field above"},
        {good + "??? 自定义\n$a 一\n", {}, "line 4: no field above"},
        {"101 语种\n" + good, {}, "line 1: the field has no subfields: 101 语种"},
        {good + "210 出版\n", {}, "line 3: the field has no subfields: 210 出版"},
        {good + "$b ë\n", {}, "line 3: U+00EB has no code in code page 936"},
        {"\xB0\xA1\n", {}, "cnmarc.txt: not UTF-8"},
        {good, "说明\n[必备字段]\n", "template.txt: line 2: no section of this name"},
        {good, "[必备子字段]\n200$a\n[不能重复的子字段]\n", "line 3: the section must follow an empty line"},
        {good, "[必备子字段]\n200$f\n", "line 2: no such subfield: 200$f"},
        {good, "[必备子字段]\n200$a\n200a\n", "line 3: the rule stands twice: 200a"},
        {good, "[必备子字段]\n𠀀\n", "template.txt: line 2: U+20000 has no code"},
        {good + "^1 检索 = 0:无 0:有\n", {}, "line 3: an item without a code, or a code twice"},
        {"200 题名\n^1 *\n^1 *\n$a 正题名\n", {}, "line 3: the indicator has a line already"},
        {good, {}, "codes.txt: line 1: neither", "00 位\n"},
        {good, {}, "codes.txt: the format has no 200$b", "[200$b]\n00 位\n"},
        {good, {}, "line 3: the position must follow", "[200$a]\n00-03 位\n03 位\n"},
        {good, {}, "line 2: codes that are repeated or do not fit", "[200$a]\n00-02 位 * aa bb\n"},
    };
    for (const auto &[format, rules, complaint, codes] : cases) {
        const Build refused = configurationOf(format, rules, codes);
        EXPECT_EQ(refused.exitCode, 1) << complaint.data();
        EXPECT_TRUE(refused.complaint.contains(complaint)) << refused.complaint.data();
        EXPECT_TRUE(refused.files.isEmpty()) << complaint.data();
    }
}

TEST(TaggedText, GivesTheRecordThatItShows) {
    const auto text = tools::parseTaggedText({u"; remark"_s, u"LDR nam0# ###"_s, u"001 12"_s, u"100 ## $aa#b"_s,
                                              u"200 1# $aC#$f著"_s, u"461 #0 $1001 7$1200 1#$a集$v2"_s});
    ASSERT_TRUE(text.ok());
    ASSERT_EQ(text.value().size(), 1);
    EXPECT_EQ(tools::assemble(text.value()[0]),
              marked(u"00119nam0 2200073   450 001000300000100000800003200001100011461002300022|"
                     "12|  $aa b|1 $aC#$f著| 0$10017$12001 $a集$v2|%"_s));
}

TEST(TaggedText, NamesTheLineThatIsMalformed) {
    for (const auto &line : {u"200 1#$a题名"_s, u"20x 1# $a题名"_s, u"200 1# 题名"_s, u"200 1# $a"_s,
                             u"461 #0 $12001#$a"_s, u"LDR nam0# ###"_s, u"461 #0 $1200 1# $a集"_s, u"00"_s}) {
        const auto text = tools::parseTaggedText({{}, u"LDR nam0# ###"_s, u"001 1"_s, line});
        EXPECT_TRUE(!text && text.failure().description == u"line 4: "_s + line) << qPrintable(line);
    }
    EXPECT_FALSE(tools::parseTaggedText({u"LDR nam0####"_s}));
}

TEST(RecordAssembler, WritesNinesWhereANumberIsTooWide) {
    QByteArray digits;
    tools::appendNumber(digits, 42, 4);
    tools::appendNumber(digits, 9999, 4);
    tools::appendNumber(digits, 10000, 4);
    EXPECT_EQ(digits, QByteArray("004299999999"));
}

// The checksum covers complete, varied records; if it changes between platforms or versions, benchmark results are no
// longer comparable.
TEST(Generator, GivesTheSameBytesForTheSameSeed) {
    tools::RecordGenerator generator(1);
    QByteArray bytes;
    for (int i = 0; i < 500; ++i)
        bytes.append(generator.next()).append("\r\n");
    EXPECT_EQ(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex(),
              "f3284be1a9dd03a2a2116f331a3924d6c53452db");
}

// In place of the database: nothing, an empty file, a database that lost a table, a file that is not a database.
TEST(PrepareDesk, CreatesADatabaseOrItsTablesAndReportsIt) {
    const QTemporaryDir folder;
    const QString database = folder.filePath(u"library.db"_s);
    const auto run = [&](const QString &program, const QStringList &arguments) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.path());
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    };
    const auto prepare = [&] { return run(QStringLiteral(PROGRAM_FOLDER "/prepareDesk"), {database, u"DSN=x;"_s}); };
    const auto sql = [&](const QString &statement) { return run(u"sqlite3"_s, {database, statement}).trimmed(); };
    const QString books = u"select count(*)>20 from zsk"_s;

    EXPECT_TRUE(prepare().contains(u"database is "_s + database));
    EXPECT_EQ(sql(books), u"1"_s);
    EXPECT_EQ(prepare(), QString());
    sql(u"drop table sck; insert into taoluTable (bookname) values ('甲')"_s);
    EXPECT_TRUE(prepare().contains(u"empty: sck, sck_zskid\n"));
    EXPECT_EQ(sql(books + u"; select bookname from taoluTable where bookname='甲'; select count(*) from sck"),
              u"1\n甲\n0"_s);

    ASSERT_TRUE(QFile::resize(database, 0));
    EXPECT_TRUE(prepare().contains(u"taoluTable, zsk, sck, sck_zskid, jhsk"));
    EXPECT_EQ(sql(books), u"0"_s);
    QFile none(database);
    ASSERT_TRUE(none.open(QIODevice::WriteOnly) && none.write(QByteArray(5000, 'x')) == 5000);
    none.close();
    EXPECT_TRUE(prepare().contains(u"is left as it is"));
}
