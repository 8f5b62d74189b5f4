// The functions of the program about a record that the search in other libraries' catalogues shows.
#include "app/windows/targetWindows.h"
#include "schema/schemaChoice.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"

namespace {

struct TargetWindowsTest : testing::Test {
    const TestDatabase database;
    ScriptedHost host;
    app::TargetWindows windows{host, database.state, {}};

    TargetWindowsTest() { host.folder = QCoreApplication::applicationDirPath(); }
    // Builds a record from "tag=content" pieces separated by "|".
    static marc::FieldedRecord record(const QString &fields) {
        marc::FieldedRecord made{u"00000nam0 2200000   450 "_s, {}};
        for (const QString &field : fields.split(u'|'))
            made.fields.push_back({field.left(3), field.sliced(4).replace(u'$', u'\u001F')});
        return made;
    }
    QString faults(const marc::FieldedRecord &record) const {
        const auto found = windows.surroundings().proof(record);
        return found ? u"%1 %2"_s.arg(found->errors).arg(found->warnings) : u"none"_s;
    }
};

} // namespace

TEST_F(TargetWindowsTest, OpensWithTheQuery) {
    QString isbn, title;
    QTimer::singleShot(0, [&] {
        auto *window = qobject_cast<targets::frmSearch *>(QApplication::activeModalWidget());
        ASSERT_TRUE(window);
        isbn = window->queryPane->query().isbn;
        title = window->queryPane->query().title;
        window->close();
    });
    windows.search(nullptr, {.isbn = u"7-02-000220-X"_s, .title = u"红楼梦"_s});
    EXPECT_EQ(isbn + u' ' + title, u"7-02-000220-X 红楼梦"_s);
}

TEST_F(TargetWindowsTest, MakesACardOrGivesTheReason) {
    const auto card = [this](const QString &fields) { return windows.surroundings().card(record(fields)); };
    EXPECT_TRUE(card(u"200=1 $a红楼梦$f曹雪芹"_s).contains(u"红楼梦"));
    EXPECT_EQ(card(u"300=  $a附注"_s), u"没有正题名,无法显示卡片!");
    EXPECT_EQ(card(u"200=1 $a"_s + u"长"_s.repeated(5000)), u"字段 200 有 10005 字节，长过 9999 字节");
}

TEST_F(TargetWindowsTest, FaultsAreThoseOfTheChosenChecks) {
    using schema::Check;
    const auto faulty = record(u"001=1|200=1 $a甲|200=1 $a乙|X98=  $a丙|X99=  $a丁"_s);
    const auto chosen = schema::Checks().set(size_t(Check::NonrepeatableField)).set(size_t(Check::UndefinedField));
    schema::chooseChecks(host.remembered(), chosen);
    EXPECT_EQ(faults(faulty), u"1 2") << "the field 200 is an error, the unknown fields are warnings";
    schema::chooseChecks(host.remembered(), {});
    EXPECT_EQ(faults(faulty), u"0 0");
    EXPECT_EQ(faults(record(u"001=1|245=10$a甲"_s)), u"none") << "the schema is for CNMARC";
    host.folder += u"/none";
    EXPECT_EQ(faults(faulty), u"none") << "there is no schema";
}

TEST_F(TargetWindowsTest, HoldingsAreFoundInTheTables) {
    database.run(u"insert into taoluTable (bookname,author,isbn) values ('甲','乙','7-02-000220-X');"
                 "insert into zsk (zskid,bookname,author,isbn) values (1,'丙','丁','')"_s);
    const auto search = windows.surroundings().searchHoldings(
        {record(u"300=  $a无"_s), record(u"010=  $a978-7-02-000220-7|200=1 $a另名"_s),
         record(u"200=1 $a"_s + u"长"_s.repeated(5000)), record(u"200=1 $a丙$f丁"_s), record(u"200=1 $a丙$f别人"_s)});
    QStringList said;
    for (auto found = search(); found; found = search())
        for (const targets::Holding &holding : *found)
            said.append(QString::number(holding.record) + u' ' + holding.words);
    EXPECT_EQ(said, (QStringList{u"1 套录库已有相同ISBN：控制号 1《甲》乙"_s,
                                 u"3 书库已有同题名同作者：控制号 1《丙》丁"_s}));
    EXPECT_FALSE(search());
}
