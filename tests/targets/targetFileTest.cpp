#include "targets/targetFile.h"
#include "support/testFolder.h"

using namespace targets;

namespace {

QByteArray listOf(const QByteArray &target) {
    return R"({"format":"targets","version":1,"targets":[)" + target + "]}";
}

QString faultIn(const QByteArray &json) {
    const auto list = parseTargets(json);
    return list ? QString() : list.failure().description;
}

constexpr auto whole = R"({"name":"甲","protocol":"SRU","host":"x.cn","port":80,"database":"a/b","user":"u",
 "password":"geheim","encrypted":true,"syntax":"XML","records":"GBK","queries":"GBK","language":"PQF","version":"1.2",
 "schema":"s","attributes":{"isbn":"1=7 4=1"},"tested":true})";

} // namespace

TEST(TargetFile, AWrongKeyIsRefusedByNameAndReason) {
    const QByteArray start = R"("name":"甲","protocol":"Z39.50","host":"x.cn","port":210,"database":"d")";
    const std::pair<QByteArray, QString> rows[] = {
        {"{", u"不是 JSON：第 1 字节处有错"_s},
        {R"({"format":"x","version":1,"targets":[]})", u"format：应为“targets”"_s},
        {R"({"format":"targets","version":2,"targets":[]})", u"version：应为 1"_s},
        {R"({"format":"targets","version":1})", u"targets：缺少这个键"_s},
        {listOf("3"), u"targets.1：应为{…}"_s},
        {listOf(R"({"name":"甲"})"), u"targets.1.protocol：缺少这个键"_s},
        {listOf("{" + start + R"(,"colour":1})"), u"targets.1.colour：不认识这个键"_s},
        {listOf("{" + start + R"(,"tested":"yes"})"), u"targets.1.tested：应为true 或 false"_s},
        {listOf("{" + start + R"(,"syntax":"MARC"})"), u"targets.1.syntax：应为 UNIMARC、USMARC、XML 之一"_s},
        {listOf("{" + start + R"(,"attributes":{"isbn":7}})"), u"targets.1.attributes.isbn：应为文字"_s},
        {listOf("{" + start + R"(,"attributes":{"isbn":"@attr 1=7"}})"),
         u"targets.1.attributes.isbn：应为“1=4”或“1=4 4=1”的样子"_s},
        {listOf("{" + start + R"(,"attributes":{}})"), u"targets.1.attributes：至少要有一项"_s},
        {listOf(QByteArray("{" + start + "}").replace("210", "70000")), u"targets.1.port：应为 1 到 65535 的整数"_s},
        {listOf(QByteArray("{" + start + "}").replace("210", "2.5")), u"targets.1.port：应为整数"_s},
        {listOf(QByteArray("{" + start + "}").replace("x.cn", "unix:/tmp/s")),
         u"targets.1.host：应为主机名或地址，不带“http://”和路径"_s},
        {listOf("{" + start + "},{" + start + "}"), u"targets.2.name：“甲”已经有了"_s},
        {listOf(QByteArray(whole).replace("XML", "USMARC")), u"targets.1.syntax：SRU 的记录只有 XML"_s},
        {listOf("{" + start + "}"), {}},
        {listOf(whole), {}},
    };
    for (const auto &[json, fault] : rows)
        EXPECT_EQ(faultIn(json), fault) << json.toStdString();
    const TestFolder folder;
    EXPECT_EQ(readTargetFile(folder.file(u"t.json"_s, "[]")).failure().description,
              u"文件{"_s + folder.path(u"t.json"_s) + u"}：不是 JSON：第 0 字节处有错");
}

TEST(TargetFile, TheKeptListIsPrivateAndTheExportedOneHasNoPassword) {
    const TestFolder folder;
    const TargetList list = parseTargets(listOf(whole)).value();
    ASSERT_EQ(list.front().password, u"geheim"_s);
    folder.file(u"targets.json"_s, "");
    QFile::setPermissions(folder.path(u"targets.json"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    ASSERT_TRUE(keepTargets(folder.path(), list));
    constexpr auto ofOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(folder.path(u"targets.json"_s)) & ofOthers);
    EXPECT_TRUE(readKeptTargets(folder.path()).value() == list);
    ASSERT_TRUE(exportTargets(folder.path(u"e.json"_s), list));
    EXPECT_FALSE(folder.read(u"e.json"_s).contains("geheim"));
    EXPECT_FALSE(folder.read(u"e.json"_s).contains("password"));
    EXPECT_EQ(readTargetFile(folder.path(u"e.json"_s)).value().front().attributes, list.front().attributes);
}

TEST(TargetFile, TheShippedListIsUntestedAndAddsOnlyNewAddresses) {
    const TestFolder folder;
    TargetList list = readKeptTargets(folder.path()).value(); // no file yet
    ASSERT_GE(list.size(), 10U);
    for (const Target &target : list)
        EXPECT_FALSE(target.tested) << target.name.toStdString();
    list.front().host = u"example.org"_s;
    list[1].tested = true;
    EXPECT_EQ(addTargets(list, shippedTargets()), 1);
    EXPECT_EQ(list.back().name, shippedTargets().front().name + u" 2");
    EXPECT_TRUE(list[1].tested);
    EXPECT_EQ(addTargets(list, shippedTargets()), 0);
    TargetList others;
    EXPECT_EQ(addTargets(others, list), int(list.size()));
    EXPECT_FALSE(others[1].tested) << "tested by somebody else";
}
