// Connections that break, and databases that are changed outside the program.
#include "database/callLimit.h"
#include "database/connection.h"
#include "database/dataSources.h"
#include "database/sublib.h"
#include "driverManager.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include <poll.h>

using database::Connection;

namespace {

const QString titles = u"select bookname from taoluTable order by zskid"_s;

// The two servers with the statements that return the ID of the current session, end a session, and delay.
const std::tuple<TestServer, QString, QString, QString> servers[] = {
    {TestServer::PostgreSql, u"select pg_backend_pid()"_s, u"select pg_terminate_backend(%1)"_s,
     u"select pg_sleep(50)"_s},
    {TestServer::MariaDb, u"select connection_id()"_s, u"kill %1"_s, u"select sleep(50)"_s},
};

// Inserts one record as the import does: on a connection of its own, with failures reported.
bool import(const TestDatabase &database, const QString &title) {
    auto connection = database.open();
    return connection && connection.value().execute(u"insert  taolutable (bookname) values ('" + title + u"')");
}

// All tests of this program use it.
[[maybe_unused]] const auto *driverManager = testing::AddGlobalTestEnvironment(new DriverManager);

} // namespace

// After the file is replaced, the new file receives all further rows, and the old one keeps the earlier rows. The
// write-ahead log of the old file must not be applied to the new one.
TEST(Link, AReplacedSqliteFileIsNoticed) {
    for (const bool whileInUse : {false, true}) {
        const TestDatabase database(TestServer::Sqlite), other(TestServer::Sqlite);
        ASSERT_TRUE(import(other, u"新库"_s));
        other.endKeptLinks();
        ASSERT_EQ(QFileInfo(other.file() + u"-wal").size(), 0);
        ASSERT_TRUE(import(database, u"一"_s));
        {
            const auto inUse = whileInUse ? database.open() : platform::Failure{};
            ASSERT_TRUE(QFile::rename(database.file(), database.file() + u".old"));
            ASSERT_TRUE(QFile::rename(other.file(), database.file()));
        }
        for (int i = 2; i < 30; ++i)
            ASSERT_TRUE(import(database, QString::number(i)));
        EXPECT_TRUE(database.selected(titles).startsWith(u"新库 2 3 4")) << database.selected(titles).toStdString();
        EXPECT_EQ(database.selected(u"PRAGMA integrity_check"_s), u"ok"_s);
        database.endKeptLinks();
        ASSERT_TRUE(QFile::remove(database.file()));
        ASSERT_TRUE(QFile::rename(database.file() + u".old", database.file()));
        EXPECT_EQ(database.selected(titles), u"一"_s);
        database.endKeptLinks();
    }
}

// A few seconds after the last use, an SQLite database is a single complete file that can be copied and overwritten.
TEST(Link, NothingIsKeptOpenBetweenUses) {
    const TestDatabase database(TestServer::Sqlite);
    ASSERT_TRUE(import(database, u"一"_s));
    ASSERT_GT(QFileInfo(database.file() + u"-wal").size(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFileInfo(database.file() + u"-wal").size() == 0; }, 20000));
}

// A missing file is a database that cannot be reached, by connection text and by data source, with any options; no file
// is created.
TEST(Link, AMissingFileIsNotCreated) {
    const TestDatabase database(TestServer::Sqlite);
    ASSERT_TRUE(import(database, u"一"_s));
    ASSERT_TRUE(QFile::remove(database.file()));
    EXPECT_FALSE(import(database, u"二"_s));
    const QString sourceFile = DriverManager::folder() + u"/gone.sqlite";
    for (const QString &text : {QString(database.connectionString() + u"NoCreat=0;"), u"DSN=空;UID=u;PWD=;"_s}) {
        const auto opened = Connection::open(database.state.links, text);
        ASSERT_FALSE(opened) << text.toStdString();
        EXPECT_TRUE(opened.failure().description.contains(u".sqlite”不存在"))
            << opened.failure().description.toStdString();
    }
    EXPECT_FALSE(QFile::exists(database.file()) || QFile::exists(sourceFile));
}

// Only a missing file is reported as missing; other failures are reported as the driver reports them.
TEST(Link, AFileThatIsNotADatabaseIsNotReportedAsMissing) {
    const TestFolder folder;
    database::LinkPool links;
    const QString file = folder.file(u"a.sqlite"_s, QByteArray(4096, 'x'));
    for (const QString &text :
         QStringList{u"Driver=SQLite3;Database="_s + file + u';',
                     TestDatabase::textOf(TestServer::PostgreSql).replace(u"PWD="_s, u"PWD=no"_s)}) {
        const auto opened = Connection::open(links, text);
        ASSERT_FALSE(opened) << text.toStdString();
        EXPECT_FALSE(opened.failure().description.contains(u"不存在")) << opened.failure().description.toStdString();
    }
}

TEST(Link, AFullDiskRefusesAndHarmsNothing) {
    const TestDatabase database(TestServer::Sqlite);
    database.selected(u"PRAGMA max_page_count=40"_s); // set on the one connection that all uses share
    int stored = 0;
    for (int i = 0; i < 300; ++i)
        stored += import(database, QString(150, u'满'));
    EXPECT_GT(stored, 10);
    EXPECT_LT(stored, 300);
    database.selected(u"PRAGMA max_page_count=4000"_s);
    EXPECT_TRUE(import(database, u"又有地方"_s));
    EXPECT_EQ(database.selected(u"select count(*) from taoluTable"_s), QString::number(stored + 1));
}

// A title whose backslash would end its literal on a server that treats backslashes as escapes; the rest would empty a
// table that the import does not use.
const QString hostileTitle = u"\\''); delete from zsk; -- "_s;

// No session executes part of a title, for any server setting and any driver option for reconnecting.
TEST(Link, ASessionReadsABackslashAsABackslash) {
    for (const auto &[server, own, end, sleep] : servers) {
        const bool postgres = server == TestServer::PostgreSql;
        const TestDatabase database(server);
        database.run(u"insert into zsk (zskid) values (7)"_s);
        if (postgres)
            database.run(u"alter role tester set standard_conforming_strings=off"_s);
        const auto back = qScopeGuard([&] {
            if (postgres)
                database.run(u"alter role tester reset standard_conforming_strings"_s);
        });
        auto killer = database.open();
        auto connection = database.open(u"AUTO_RECONNECT=1;OPTION=4194304;"_s);
        ASSERT_TRUE(connection) << connection.failure().description.toStdString();
        EXPECT_TRUE(connection.value().execute(u"insert  taolutable (bookname) values ('" + hostileTitle + u"')"));
        ASSERT_TRUE(killer.value().execute(QString(end).arg(connection.value().query(own).value()->text(0, 0))));
        for (int i = 0; i < 3; ++i)
            (void)connection.value().execute(u"insert  taolutable (bookname) values ('路\\径')"_s);
        EXPECT_EQ(database.selected(u"select zskid from zsk"_s), u"7"_s);
        EXPECT_EQ(database.selected(u"select bookname from taoluTable where bookname<>'路\\径'"_s),
                  QString(hostileTitle).replace(u"''"_s, u"'"_s));
    }
    // The first query of this session fails, so how it treats a backslash is unknown.
    EXPECT_FALSE(TestDatabase(TestServer::MariaDb).open(u"INITSTMT={set max_session_mem_used=8192};"_s));
}

// Waits until the end of a connection has arrived through the network stack; returns whether it did.
bool aSocketTells() {
    std::vector<pollfd> looks;
    for (const int socket : database::CallLimit::sockets())
        looks.push_back({.fd = socket, .events = POLLIN, .revents = 0});
    return ::poll(looks.data(), nfds_t(looks.size()), 10'000) > 0;
}

// The server ends a connection that is waiting for its next use, and one that is in use: its query is sent again on a
// new connection.
TEST(Link, ADeadConnectionIsReplaced) {
    for (const auto &[server, own, end, sleep] : servers) {
        const TestDatabase database(server);
        auto killer = database.open();
        const QString waiting = database.selected(own);
        ASSERT_EQ(database.selected(own), waiting); // one use after the other gets the same connection
        auto inUse = database.open(u"A=1;"_s);
        for (const QString &session : {waiting, inUse.value().query(own).value()->text(0, 0)}) {
            ASSERT_TRUE(killer.value().execute(QString(end).arg(session)));
            ASSERT_TRUE(aSocketTells());
        }
        EXPECT_TRUE(import(database, u"一"_s));
        const auto rows = inUse.value().query(titles);
        EXPECT_TRUE(rows && rows.value()->text(0, 0) + database.selected(titles) == u"一一");
        // A change is not sent again, since the server may have made it.
        ASSERT_TRUE(killer.value().execute(QString(end).arg(inUse.value().query(own).value()->text(0, 0))));
        ASSERT_TRUE(aSocketTells());
        EXPECT_FALSE(inUse.value().execute(u"insert  taolutable (bookname) values ('二')"_s));
        EXPECT_EQ(database.selected(titles), u"一"_s);
    }
}

// A temporary table exists only as long as its session; the oldest released connections are closed.
TEST(Link, NoMoreThanAFewLinksAreKept) {
    const TestDatabase database(TestServer::MariaDb);
    const auto opened = [&](int i) { return database.open(u"A=%1;"_s.arg(i)); };
    {
        std::vector<Connection> used;
        for (int i = 0; i < 6; ++i) {
            used.push_back(std::move(opened(i)).value());
            ASSERT_TRUE(used.back().execute(u"create temporary table held (a int)"_s));
        }
        while (!used.empty())
            used.erase(used.begin());
    }
    for (int i = 5; i >= 0; --i)
        EXPECT_EQ(opened(i).value().query(u"select a from held"_s).ok(), i >= 2) << i;
}

// A rule on a view redirects the insert, so that the insert cannot return a key.
TEST(Link, AKeyThatAnInsertDoesNotReturnIsQueried) {
    const TestDatabase database(TestServer::PostgreSql);
    database.run(u"alter table taolutable rename to held; create view taolutable as select * from held; "
                 u"create rule taken as on insert to taolutable do instead insert into held (bookname) "
                 u"values (new.bookname);"_s);
    auto restored =
        qScopeGuard([&] { database.run(u"drop view taolutable; alter table held rename to taolutable;"_s); });
    const QString wrong = u"insert  taolutable (bookname) values (repeat('一',1000))"_s;
    for (const QString &key : {u"1"_s, u"2"_s}) {
        auto connection = database.open();
        ASSERT_TRUE(connection);
        const auto in = connection.value().insert(u"insert  taolutable (bookname) values ('一')"_s, u"zskid"_s);
        ASSERT_TRUE(in) << in.failure().description.toStdString();
        EXPECT_EQ(QString::number(in.value().value_or(0)), key);
        EXPECT_FALSE(connection.value().insert(wrong, u"zskid"_s));
    }
    EXPECT_EQ(database.selected(u"select zskid from held order by zskid"_s), u"1 2"_s);
}

TEST(Link, AServerThatStopsAndRestarts) {
    const TestDatabase database(TestServer::PostgreSql);
    ASSERT_TRUE(import(database, u"一"_s));
    database::DbSession session;
    ScriptedHost host;
    ASSERT_TRUE(openConnection(session, database.state, host));
    commandServers(u"stop-postgresql"_s);
    auto comesBack = qScopeGuard([] { commandServers(u"start-postgresql"_s); }); // for the other tests
    const QString second = u"insert  taolutable (bookname) values ('二')"_s;
    EXPECT_FALSE(session->execute(second) || session->query(titles));
    database::DbSession idle = std::nullopt;
    EXPECT_FALSE(import(database, u"二"_s));
    EXPECT_FALSE(openConnection(idle, database.state, host));
    EXPECT_FALSE(idle);
    ASSERT_EQ(host.texts(), QStringList{u"连接数据库失败"_s});
    EXPECT_EQ(host.lastBox().title, u"错误提示"_s);
    EXPECT_EQ(host.lastBox().icon, platform::Icon::Critical);
    comesBack.dismiss();
    commandServers(u"start-postgresql"_s);
    EXPECT_TRUE(session->execute(second)); // the session reconnects; the failed statement is not repeated
    EXPECT_TRUE(import(database, u"三"_s));
    EXPECT_EQ(database.selected(titles), u"一 二 三"_s);
}

// A server that does not respond and a statement that takes too long are errors, after which work continues. The
// connection text sets short limits for the test.
TEST(Link, AServerThatDoesNotAnswerIsAFault) {
    for (const auto &[server, own, end, sleep] : servers) {
        const TestDatabase database(server);
        const QString name = TestDatabase::nameOf(server);
        const QString limit = u"StatementTimeout=2;"_s;
        auto connection = database.open(limit);
        ASSERT_TRUE(connection);
        const QString session = connection.value().query(own).value()->text(0, 0);
        EXPECT_FALSE(connection.value().query(sleep));
        EXPECT_EQ(connection.value().query(own).value()->text(0, 0), session); // only the statement was ended

        commandServers(u"freeze-" + name);
        auto thaws = qScopeGuard([&] { commandServers(u"thaw-" + name); });
        const auto in = connection.value().execute(u"insert  taolutable (bookname) values ('一')"_s);
        ASSERT_FALSE(in);
        EXPECT_TRUE(in.failure().description == u"数据库服务器没有应答，连接已断开" || server == TestServer::MariaDb)
            << in.failure().description.toStdString();           // the other driver has a limit of its own
        EXPECT_FALSE(database.open(limit + u"LoginTimeout=2;")); // no connection with this text is kept
        thaws.dismiss();
        commandServers(u"thaw-" + name);
        EXPECT_TRUE(import(database, u"二"_s));
    }
}

// The driver manager limits a connection text to 1,024 bytes. The text that the program appends counts, and repeated
// use does not make it longer.
TEST(Link, AConnectionTextThatIsTooLongIsRefused) {
    const TestDatabase database(TestServer::Sqlite);
    const auto open = [&](int size) { return database.open(u"A=" + QString(size, u'x') + u';'); };
    int longest = 700;
    while (open(longest))
        longest += 5;
    EXPECT_TRUE(open(longest).failure().description.startsWith(u"连接字符串太长")) << longest;
    EXPECT_LT(longest, 1024);
    const QString chinese = u"Driver={PostgreSQL Unicode};A="_s + QString(400, u'馆') + u';';
    EXPECT_FALSE(open(5000) || Connection::open(database.state.links, chinese));
    EXPECT_TRUE(database.open(u"PWD={a;b};B=x{y;"_s));
    EXPECT_FALSE(database.open(u"PWD={a;b;"_s)) << "the appended text would become part of the password";
    for (int use = 0; use < 30; ++use) {
        EXPECT_TRUE(open(longest - 10)) << use;
        database.endKeptLinks();
    }
}

// Composed as in the connection dialog, for a driver with narrow and for one with wide functions.
TEST(Link, DataSourcesOfChineseNamesAreListedAndOpened) {
    for (const QString &name : {u"馆藏"_s, u"总馆"_s}) {
        EXPECT_TRUE(database::dataSourceNames().contains(name)) << database::dataSourceNames().join(u'|').toStdString();
        database::LinkPool links({u"zsk"_s});
        auto connection = Connection::open(links, u"PROVIDER=MSDASQL;DSN=" + name + u";UID=tester;PWD=Tarvex-1;");
        ASSERT_TRUE(connection) << connection.failure().description.toStdString();
        (void)connection.value().execute(u"create table zsk (zskid integer)"_s);
        EXPECT_TRUE(connection.value().query(u"select zskid from ZSK"_s));
    }
}
