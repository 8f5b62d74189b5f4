// Looks up the records of a batch, on SQLite files and on real servers.
#include "duplicatesTest.h"
#include "support/recordText.h"

using namespace batch;

SoughtBooks sought(const QStringList &records) {
    auto store = std::make_shared<marc::PreReadStore>();
    store->setRows(int(records.size()));
    for (int row = 0; row < records.size(); ++row)
        store->setRecord(row, recordOf(records[row]));
    BatchProof proving(store, [](const marc::FieldRows &) { return proof::RecordFaults{}; });
    while (proving.hasNext())
        (void)proving.step();
    return proving.takeBooks();
}

QStringList found(const database::SessionState &state, const QStringList &records) {
    DuplicateSearch search(state, sought(records));
    QStringList lines;
    while (search.hasNext())
        for (const Remark &remark : search.step())
            lines.append(QString::number(remark.record) + u' ' + remark.tag.text() + u' ' + remark.text);
    return lines;
}

TEST_P(DuplicatesOnServersTest, AreFoundByIsbnOrByTitleAndAuthor) {
    const TestDatabase database(GetParam());
    EXPECT_EQ(found(database.state, {u"010=  $a7-02-001259-0"_s}), QStringList()); // empty tables
    // Keys far apart, further than the range of one query.
    database.run(uR"(
        insert into zsk (zskid,isbn,bookname,author) values (-7,'9787020012596','呐喊','鲁迅著');
        insert into zsk (zskid,isbn,bookname,author) values (70000,'978-7-02-0012','呐喊','鲁迅著');
        insert into zsk (zskid,isbn,bookname,author) values (70001,'978-7-02-0012','彷徨','鲁迅著');
        insert into zsk (zskid,isbn,bookname,author) values (70002,'978-7-02-0099','呐喊','鲁迅著');
        insert into zsk (zskid,isbn,bookname,author) values (70003,null,null,null);
        insert into zsk (zskid,isbn,bookname,author) values (90000000,null,'L''été ''); drop table zsk; --','O''Neill \著');
        insert into taoluTable (zskid,isbn,bookname,author) values (1,'7020012590','呐喊''','鲁迅著');)"_s);
    database.run(u"insert into taoluTable (zskid,bookname,author,isbn) values (2,'%1','%2','')"_s.arg(
        u"长"_s.repeated(50), u"作"_s.repeated(30)));
    const QStringList records{
        u"010=  $a978-7-02-001259-6|200=1 $a呐喊$f鲁迅著"_s,     // 0: stored as a whole, cut off, and as ISBN-10
        u"010=  $a7-02-001259-0|200=1 $a彷徨与呐喊"_s,           // 1
        u"200=1 $aL'été '); drop table zsk; --$fO'Neill \\著"_s, // 2
        u"200=1 $aL'été '); drop table zsk; --$f别人"_s,         // 3: another author
        u"010=  $a7-02-001037-7|200=1 $a呐喊$f鲁迅著"_s,         // 4: another edition
        u"200=1 $a"_s + u"长"_s.repeated(60) + u"$f" + u"作"_s.repeated(31), // 5: longer than the columns
        u"010=  $a978-7-02-001234-3|200=1 $a彷徨"_s,                         // 6: stored cut off only
    };
    EXPECT_EQ(found(database.state, records),
              (QStringList{
                  u"0 010 套录库已有相同ISBN：控制号 1《呐喊'》鲁迅著"_s,
                  u"1 010 套录库已有相同ISBN：控制号 1《呐喊'》鲁迅著"_s,
                  u"5 200 套录库已有同题名同作者：控制号 2《%1》%2"_s.arg(u"长"_s.repeated(50), u"作"_s.repeated(30)),
                  u"0 010 书库已有相同ISBN：控制号 -7《呐喊》鲁迅著，共 2 条"_s,
                  u"1 010 书库已有相同ISBN：控制号 -7《呐喊》鲁迅著"_s,
                  u"2 200 书库已有同题名同作者：控制号 90000000《L'été '); drop table zsk; --》O'Neill \\著"_s,
                  u"6 010 书库已有相同ISBN：控制号 70001《彷徨》鲁迅著"_s,
              }));
}

// Keys at the limits of their type, as far apart as a distributed database may assign them.
TEST_P(DuplicatesOnServersTest, AreFoundUnderAnyKey) {
    const TestDatabase database(GetParam());
    if (GetParam() != TestServer::Sqlite)
        database.run(GetParam() == TestServer::MariaDb ? u"alter table zsk modify zskid bigint"_s
                                                       : u"alter table zsk alter column zskid type bigint"_s);
    const QStringList keys{u"-9223372036854775808"_s, u"-4611686018427387904"_s, u"0"_s, u"4611686018427387904"_s,
                           u"9223372036854775807"_s};
    QStringList records, expected;
    for (int i = 0; i < keys.size(); ++i) {
        database.run(u"insert into zsk (zskid,isbn,bookname) values (%1,'978700000000%2','书')"_s.arg(keys[i]).arg(i));
        records.append(u"010=  $a978700000000%1"_s.arg(i));
        expected.append(u"%1 010 书库已有相同ISBN：控制号 %2《书》"_s.arg(i).arg(keys[i]));
    }
    DuplicateSearch search(database.state, sought(records));
    QStringList lines;
    for (int questions = 0; search.hasNext() && questions < 20; ++questions) {
        for (const Remark &remark : search.step())
            lines.append(QString::number(remark.record) + u' ' + remark.tag.text() + u' ' + remark.text);
        const QString progress = search.progressText();
        EXPECT_TRUE(progress.isEmpty() ||
                    QStringList({u"0%"_s, u"99%"_s, u"100%"_s}).contains(progress.section(u' ', 1)))
            << progress.toStdString();
    }
    EXPECT_EQ(lines, expected);
    EXPECT_FALSE(search.hasNext()) << "the number of queries depends on the rows, not on the keys";
}
