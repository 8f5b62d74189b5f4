// A refused insert is sent only once, for every kind of refusal.
#include "database/connection.h"
#include "support/databaseServers.h"

using database::Connection;

class InsertsTest : public testing::TestWithParam<TestServer> {
protected:
    static QString insertOf(const QString &title) { return u"insert  taolutable (bookname) values ('" + title + u"')"; }

    // Makes duplicate titles and the titles 拒 and 满 fail. On PostgreSQL and MariaDB the trigger raises the error of a
    // full disk.
    QStringList refusals() const {
        switch (GetParam()) {
        case TestServer::Sqlite: // raise(fail) keeps the changes that the trigger made before
            return {u"create unique index once on taoluTable (bookname)"_s, u"create table attempts (title text)"_s,
                    u"create trigger refuse before insert on taoluTable when new.bookname='拒' begin "
                    "insert into attempts values (new.bookname); select raise(fail,'refused'); end"_s};
        case TestServer::PostgreSql:
            return {u"create unique index once on taoluTable (bookname)"_s,
                    u"create or replace function refuse() returns trigger language plpgsql as 'begin "
                    "if new.bookname=''满'' then raise exception ''full'' using errcode=''53100''; end if; "
                    "raise exception ''refused''; end'"_s,
                    u"create trigger refuse before insert on taoluTable for each row "
                    "when (new.bookname in ('拒','满')) execute function refuse()"_s};
        case TestServer::MariaDb:
            return {u"create unique index once on taoluTable (bookname)"_s,
                    u"create trigger refuse before insert on taoluTable for each row begin "
                    "if new.bookname='拒' then signal sqlstate '45000'; end if; "
                    "if new.bookname='满' then signal sqlstate 'HY000' set mysql_errno=1114; end if; end"_s};
        }
        return {};
    }

    // Returns how many inserts the session has sent; on PostgreSQL each insert takes a key from the sequence.
    int sent(Connection &connection) const {
        switch (GetParam()) {
        case TestServer::Sqlite:
            return connection.query(u"select count(*) from attempts"_s).value()->text(0, 0).toInt();
        case TestServer::PostgreSql:
            return connection.query(u"select last_value from taolutable_zskid_seq"_s).value()->text(0, 0).toInt();
        case TestServer::MariaDb:
            return connection
                .query(u"select variable_value from information_schema.session_status "
                       "where variable_name='COM_INSERT'"_s)
                .value()
                ->text(0, 0)
                .toInt();
        }
        return 0;
    }

    TestDatabase database{GetParam()};
};

ON_ALL_SERVERS(InsertsTest);

TEST_P(InsertsTest, ARefusedOneIsSentOnce) {
    const bool sqlite = GetParam() == TestServer::Sqlite;
    auto other = database.open(), connection = database.open(u"StatementTimeout=1;Timeout=100;"_s);
    for (const QString &statement : refusals())
        ASSERT_TRUE(other.value().execute(statement)) << statement.toStdString();
    ASSERT_TRUE(other.value().execute(insertOf(u"有"_s)));
    if (sqlite)
        (void)connection.value().query(u"PRAGMA max_page_count=1"_s); // no more pages than there are
    for (const QStringView title : {u"拒", u"有", u"锁", u"满"}) {
        const QString insert = insertOf(sqlite && title == u"满" ? QString(200'000, u'满') : title.toString());
        const bool locked = title == u"锁"; // the same title is being inserted by another session
        const int before = sent(connection.value());
        EXPECT_TRUE(!locked || (other.value().execute(u"begin"_s) && other.value().execute(insert)));
        EXPECT_FALSE(connection.value().insert(insert, u"zskid"_s)) << title.toUtf8().constData();
        EXPECT_TRUE(!locked || other.value().execute(u"rollback"_s));
        const int byOther = locked && GetParam() == TestServer::PostgreSql ? 1 : 0;
        EXPECT_EQ(sent(connection.value()) - before, sqlite && title != u"拒" ? 0 : 1 + byOther)
            << title.toUtf8().constData();
    }
    const auto key = connection.value().insert(insertOf(u"好"_s), u"zskid"_s);
    ASSERT_TRUE(key) << key.failure().description.toStdString();
    EXPECT_EQ(database.selected(u"select zskid from taoluTable where bookname='好'"_s), QString::number(*key.value()));
    EXPECT_EQ(database.selected(u"select count(*) from taoluTable"_s), u"2"_s);
}
