// Looks up the records of a batch in SQLite files: behaviour that does not depend on the server.
#include "duplicatesTest.h"

using namespace batch;

INSTANTIATE_TEST_SUITE_P(Sqlite, DuplicatesOnServersTest, testing::Values(TestServer::Sqlite));

// Blocks of thousands of adjacent rows with large gaps between their keys: limited queries find all rows.
TEST(Duplicates, WalkTheWholeTable) {
    const TestDatabase database;
    database.run(u"insert into zsk (zskid,isbn) with recursive n(i) as (select 1 union all select i+1 from n where "
                 "i<20000) select i+(i/5000)*10000000,9787000000000+i from n"_s);
    QStringList records;
    for (int i = 1; i <= 20000; ++i)
        records.append(u"010=  $a97870000%1"_s.arg(i, 5, 10, QChar(u'0')));
    DuplicateSearch search(database.state, sought(records));
    size_t remarks = 0, mostAtOnce = 0;
    while (search.hasNext()) {
        const size_t step = search.step().size();
        remarks += step;
        mostAtOnce = std::max(mostAtOnce, step);
    }
    EXPECT_EQ(remarks, 20000U);
    EXPECT_LE(mostAtOnce, 1000U) << "a step lasts too long";
}

TEST(Duplicates, ReportTablesThatCannotBeReadAndContinue) {
    const TestDatabase database;
    database.run(u"drop table taoluTable; insert into zsk (zskid,isbn) values (3,'9787020012596');"_s);
    const QStringList records{u"010=  $a7020012590"_s};
    QStringList lines = found(database.state, records);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].startsWith(u"-1  套录库未能查完：")) << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith(u"0 010 书库已有"));

    database::LinkPool links;
    lines = found({links, u"Driver=SQLite3;Database=/nowhere/none.db;NoCreat=1;"_s}, records);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].startsWith(u"-1  未能查重：")) << lines[0].toStdString();
}
