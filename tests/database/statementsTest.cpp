// The program's statements on the real servers.
#include "support/databaseServers.h"

using database::Connection;

class StatementsTest : public testing::TestWithParam<TestServer> {
protected:
    TestDatabase database{GetParam()};

    std::shared_ptr<database::ResultTable> rows(const QString &statement) const {
        auto connection = database.open();
        if (auto rows = connection ? connection.value().query(statement) : connection.failure())
            return rows.value();
        else
            ADD_FAILURE() << rows.failure().description.toStdString();
        return std::make_shared<database::ResultTable>(QStringList());
    }
    void addBooks(std::initializer_list<QStringView> values) const {
        for (const QStringView value : values)
            database.run(u"insert into zsk (zskid,bookname,catatime) values (" + value + u')');
    }
};

ON_ALL_SERVERS(StatementsTest);

TEST_P(StatementsTest, ImportedTextsAreReadUnchanged) {
    const QStringList texts = {
        u"O'Neil''s [书   名] \"x\" `y` convert(varchar(10),a,111) Like"_s,
        u"C:\\路径\\"_s,
        u"光盘1片,附勘误表1张,还书"_s, // the low bytes of 盘, 勘 and 还 look like those of a surrogate
        u"\\' \\\\ %_ \\n"_s,
        u"?{fn x} {d '2005-01-01'} :a $1 @b ; -- /* */ # insert  t"_s,
        u"名 与\t𠀀😀\uE000\uF8F5\uFFFD é"_s,
        QString(),
        QString(10000, u'文'),
        u"00371nam0\x1e\x1f"
        u"a'\x1d"_s +
            QString(30000, u'\''),
        u"a"_s + QString(40000, u'注'), // read in pieces that end within a character
    };
    for (QString marc : texts) {
        const QString title = marc.first(std::min<qsizetype>(marc.size(), 50)).replace(u'\'', u"''"_s);
        database.run(u"insert  taolutable (bookname,pages,price,marc) values ('" + title + u"',320,12.5,'" +
                     marc.replace(u'\'', u"''"_s) + u"')");
    }
    const auto stored = rows(u"select zskid,bookname,MARC,pages,price from taoluTable order by zskid"_s);
    ASSERT_EQ(stored->rowCount(), texts.size());
    for (int row = 0; row < texts.size(); ++row) {
        EXPECT_EQ(stored->text(row, 1), texts[row].first(std::min<qsizetype>(texts[row].size(), 50)));
        EXPECT_TRUE(stored->text(row, stored->column(u"marc").value()) == texts[row]) << row;
        EXPECT_EQ(stored->text(row, 3) + u' ' + stored->text(row, 4).first(4), u"320 12.5"_s);
    }
}

TEST_P(StatementsTest, AResultOfManyRowsIsComplete) {
    for (int i = 1; i <= 700; ++i) // more than one block, with titles longer than the declared width
        database.run(u"insert into zsk (zskid,bookname) values (" + QString::number(i) + u",'" +
                     (GetParam() == TestServer::Sqlite && i == 600 ? QString(5000, u'长') : QString(i % 190, u'书')) +
                     u"')");
    const auto all = rows(u"select zskid as [控制号],bookname,isbn from ZSK order by zskid"_s);
    ASSERT_EQ(all->rowCount(), 700);
    EXPECT_EQ(all->columnNames(), (QStringList{u"控制号"_s, u"bookname"_s, u"isbn"_s}));
    for (int row = 0; row < 700; ++row) {
        ASSERT_EQ(all->text(row, 0), QString::number(row + 1));
        ASSERT_EQ(all->text(row, 1).size(), all->text(row, 1).startsWith(u'长') ? 5000 : (row + 1) % 190);
        ASSERT_TRUE(all->isNull(row, 2));
    }
}

TEST_P(StatementsTest, DatesCompareAsTextOfStyle111) {
    addBooks({u"1,'a','2005-03-01'", u"2,'b','2005-03-31 23:59:59'", u"3,'c','2005-12-09'", u"4,'d','2004-02-29'",
              u"5,'e',null"});
    const std::pair<QStringView, QString> cases[] = {
        {u" Like '2005/03/31'", u"2"_s},  {u" Like '2005/03/__'", u"1 2"_s},  {u" Like '____/__/_9'", u"3 4"_s},
        {u" >='2005/03/01'", u"1 2 3"_s}, {u" >='2005/04/00'", u"3"_s},       {u" <'2005/03/00'", u"4"_s},
        {u" >'2005/03/99'", u"3"_s},      {u" >'2004/99/99'", u"1 2 3"_s},    {u" <='2005/03/99'", u"1 2 4"_s},
        {u" <>'2005/03/01'", u"2 3 4"_s}, {u" <>'2005/03/__'", u"1 2 3 4"_s},
    };
    for (const auto &[condition, found] : cases)
        EXPECT_EQ(database.selected(u"select zskid from zsk where Convert(varchar(10),catatime,111)" + condition +
                                    u" order by zskid"),
                  found)
            << condition.toUtf8().constData();
    EXPECT_EQ(
        database.selected(u"select convert(varchar(10),catatime,111) as [入库日期] from zsk order by catatime,zskid"_s)
            .trimmed(),
        u"2004/02/29 2005/03/01 2005/03/31 2005/12/09"_s);
}

TEST_P(StatementsTest, LikeFindsWithoutRegardToCaseAndWithoutEscapes) {
    addBooks({u"1,'xABCy',null", u"2,'50% [中国]_a\\b',null", u"3,'it''s Like 中国',null"});
    const QList<std::pair<QString, QString>> cases = {
        {u"%abc%"_s, u"1"_s}, {u"%中国%"_s, u"2 3"_s}, {u"%a\\b%"_s, u"2"_s},  {u"%B\\%"_s, {}},
        {u"%\\B"_s, u"2"_s},  {u"x___y"_s, u"1"_s},    {u"%t''s l%"_s, u"3"_s}};
    for (const auto &[pattern, found] : cases)
        EXPECT_EQ(database.selected(u"select zskid from zsk where bookname Like '" + pattern + u"' order by zskid"),
                  found)
            << pattern.toStdString();
}

TEST_P(StatementsTest, DeletionsDeleteExactlyTheirRows) {
    for (int i = 0; i < 4; ++i)
        database.run(u"insert  taolutable (bookname,pages) values ('书" + QString::number(i) + u"',0)");
    const QString left = u"select bookname from taoluTable order by bookname"_s;
    const QString second = database.selected(u"select zskid from taoluTable where bookname='书1'"_s);
    database.run(u"delete from taoluTable where zskid=" + second);
    EXPECT_EQ(database.selected(left), u"书0 书2 书3"_s);
    database.run(u"delete from taoluTable where zskid=" + second); // deleting a deleted row is no error

    // An ORDER BY in a DELETE is either rejected or obeyed.
    auto connection = database.open();
    const bool obeyed =
        bool(connection.value().execute(u"delete from taoluTable where bookname='书2' order by isbn Asc"_s));
    EXPECT_EQ(obeyed, GetParam() == TestServer::MariaDb);
    EXPECT_EQ(database.selected(left), obeyed ? u"书0 书3"_s : u"书0 书2 书3"_s);
    database.run(u"delete from taoluTable"_s);
    EXPECT_EQ(database.selected(left), QString());
}

TEST_P(StatementsTest, AFaultHasItsNumberAndTheServersText) {
    auto connection = database.open();
    for (const QStringView statement :
         {u"select zskid from nosuch", u"select nosuch from zsk", u"insert  nosuch (a) values (1)"}) {
        const auto failed = connection.value().query(statement.toString());
        ASSERT_FALSE(failed);
        const int number = GetParam() == TestServer::Sqlite       ? 1
                           : GetParam() == TestServer::PostgreSql ? failed.failure().number
                           : statement.contains(u"select nosuch") ? 1054
                                                                  : 1146;
        EXPECT_EQ(failed.failure().number, number);
        EXPECT_NE(number, 0);
        EXPECT_TRUE(failed.failure().description.contains(u"nosuch")) << failed.failure().description.toStdString();
    }
    // Text after a NUL would be lost, and the rest might be a complete statement.
    const auto cut = connection.value().execute(u"delete from zsk"_s + QChar(0) + u" where zskid=0");
    EXPECT_TRUE(!cut && cut.failure().description.contains(u"NUL"));
    EXPECT_EQ(database.selected(u"select zskid from zsk"_s), QString()); // the connection still works
}
