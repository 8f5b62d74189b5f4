#include "database/connectionText.h"
#include "database/resultTable.h"
#include "database/script.h"
#include "database/servers.h"
#include "database/sqlDialect.h"
#include "database/storedConnection.h"
#include "database/whereabouts.h"
#include "support/testFolder.h"

using database::rewrite;
using database::Server;

namespace {

struct Case {
    QString statement;
    QString sqlite, postgresql, mariadb; // empty: the same as the previous one
};

const QStringList tables = {u"taoluTable"_s, u"zsk"_s, u"sck"_s, u"jhsk"_s};

// Parts of the program's statements, with values that resemble the text to be rewritten.
const QList<Case> cases = {
    {u"insert  taolutable (marc) values ('O''N [1] \\ insert  t convert(varchar(1),a,111) Like')"_s,
     u"insert into  taoluTable (marc) values ('O''N [1] \\ insert  t convert(varchar(1),a,111) Like')"_s,
     {},
     {}},
    {u"select ISBN as isbn,bookname as [书   名] from ZSK order by ISBN Desc"_s,
     u"select ISBN as isbn,bookname as \"书   名\" from zsk order by ISBN Desc"_s,
     {},
     u"select ISBN as isbn,bookname as `书   名` from zsk order by ISBN Desc"_s},
    {u"where Convert(varchar(10),catatime,111) >='2005/03/00' And isbn='convert('"_s,
     u"where replace(substr(catatime,1,10),'-','/') >='2005/03/00' And isbn='convert('"_s,
     u"where cast(to_char(cast(catatime as timestamp),'YYYY/MM/DD') as varchar(10)) >='2005/03/00' And isbn='convert('"_s,
     u"where cast(date_format(catatime,'%Y/%m/%d') as char(10)) >='2005/03/00' And isbn='convert('"_s},
    {u"delete from taolutable where (author='[y]' And bookname Like '%a''[b] Like%')"_s,
     u"delete from taoluTable where (author='[y]' And bookname Like '%a''[b] Like%')"_s,
     u"delete from taoluTable where (author='[y]' And bookname ILike '%a''[b] Like%' Escape '')"_s,
     u"delete from taoluTable where (author='[y]' And convert(bookname using utf8mb4) collate utf8mb4_general_ci Like "
     u"'%a''[b] Like%' Escape '\x1f')"_s},
    {u"select top 7 a,'top 8' as top from ZSK where zskid>5 order by zskid"_s,
     u"select a,'top 8' as top from zsk where zskid>5 order by zskid limit 7"_s,
     {},
     {}},
    // Malformed by a quote in a value, or only similar to the program's: nothing is lost or rewritten by mistake.
    {u"select 1 where a='it's' And b Convert( varchar(10), 'open"_s, {}, {}, {}},
    {u"select top from t"_s, {}, {}, {}},
    {u"select a.[x]]y] from zsk a where a.b Like 'c'''"_s, u"select a.\"x]y\" from zsk a where a.b Like 'c'''"_s,
     u"select a.\"x]y\" from zsk a where a.b ILike 'c''' Escape ''"_s,
     u"select a.`x]y` from zsk a where convert(a.b using utf8mb4) collate utf8mb4_general_ci Like 'c''' Escape '\x1f'"_s},
    {u"/* insert */ insert -- into\n t (a) values ('like')"_s,
     u"/* insert */ insert into -- into\n t (a) values ('like')"_s,
     {},
     {}},
    {u"select top 7(a) from zsk"_s, u"select (a) from zsk limit 7"_s, {}, {}},
    {u"insert into t (a) values (\"like\")"_s, {}, {}, {}},
    {u"select ZSK9,A_ZSK,_ZSK,ZSK_,书ZSK from t /*/ like */ -- like"_s, {}, {}, {}},
    {u"select a from t /* like"_s, {}, {}, {}},
    {u"select convert(varchar(10),f(a,(b)),111) from zsk"_s,
     u"select replace(substr(f(a,(b)),1,10),'-','/') from zsk"_s,
     u"select cast(to_char(cast(f(a,(b)) as timestamp),'YYYY/MM/DD') as varchar(10)) from zsk"_s,
     u"select cast(date_format(f(a,(b)),'%Y/%m/%d') as char(10)) from zsk"_s},
    {u"select convert(varchar(10)) from t where convert(varchar,a) = convert varchar(1)"_s, {}, {}, {}},
    {u"select convert(date,a),convert(varchar(10),b,120),converted[ from t"_s, {}, {}, {}},
};

} // namespace

TEST(Dialect, SpellsEveryStatementAsItsServerDoes) {
    for (const Case &c : cases) {
        QString expected = c.statement;
        for (const auto &[server, spelled] : {std::pair{Server::SqlServer, QString()},
                                              {Server::Other, QString()},
                                              {Server::Sqlite, c.sqlite},
                                              {Server::PostgreSql, c.postgresql},
                                              {Server::MariaDb, c.mariadb}}) {
            expected = spelled.isEmpty() ? expected : spelled;
            EXPECT_EQ(rewrite(c.statement, server, tables), expected);
        }
    }
    EXPECT_EQ(rewrite(u"delete from taoluTable"_s, Server::MariaDb, {u"TAOLUTABLE"_s}), u"delete from TAOLUTABLE"_s);
}

TEST(Dialect, CutsScriptsOnlyBetweenStatements) {
    EXPECT_EQ(database::statementsOf(u"-- a; b\ninsert into t values ('x;''y -- z'); /* ; */ ;\n delete from t"_s),
              (QStringList{u"insert into t values ('x;''y -- z')"_s, u"delete from t"_s}));
}

TEST(ConnectionText, IsAdaptedToItsDriver) {
    const auto text = [](QStringView stored, QStringView source = u"") {
        const QString text = stored.toString(), pairs = source.toString();
        return database::driverText(text, pairs, database::namedDriver(text, pairs), database::Certainty::Known);
    };
    EXPECT_EQ(text(u"PROVIDER=MSDASQL;Driver=SQL Server;Server=S;UID=u;PWD=a{b};Database=d;"),
              u"Driver=SQL Server;Server=S;UID=u;PWD=a{b};Database=d;"_s);
    EXPECT_EQ(text(u"provider=msdasql;Driver=Microsoft Access Driver (*.mdb);Server=x;Database=/a b/c.mdb;"),
              u"Driver=Microsoft Access Driver (*.mdb);Server=x;Database=/a b/c.mdb;DBQ=/a b/c.mdb;"_s);
    EXPECT_EQ(text(u"DSN=lib;UID=u", u"Driver=SQLite3;"), u"DSN=lib;UID=u;StepAPI=1;NoCreat=1;Timeout=2000;"_s);
    EXPECT_EQ(text(u"Driver=SQLite3;NoCreat=0;Timeout=5000;StepAPI=0"),
              u"Driver=SQLite3;StepAPI=0;NoCreat=1;Timeout=2000;"_s);
    EXPECT_EQ(text(u"DSN=lib;", u"Driver=SQLite3;Timeout=300;"), u"DSN=lib;StepAPI=1;NoCreat=1;"_s);
    for (const QStringView endless :
         {u"Driver=SQLite3;Timeout=-1", u"Driver=SQLite3;Timeout=ever", u"Driver=SQLite3;Timeout=2001"})
        EXPECT_TRUE(text(endless).endsWith(u"NoCreat=1;Timeout=2000;"));
    EXPECT_TRUE(text(u"Driver=SQLite3;Timeout=0").startsWith(u"Driver=SQLite3;Timeout=0;"));
    EXPECT_EQ(text(u"Driver=MariaDB Unicode;AUTO_RECONNECT=1;CONN_TIMEOUT=3;StatementTimeout=0;"),
              u"Driver=MariaDB Unicode;CONN_TIMEOUT=3;StatementTimeout=0;CHARSET=utf8mb4;AUTO_RECONNECT=0;"_s);
    EXPECT_EQ(text(u"DSN=m;", u"Driver=/a/libmaodbc.so;StatementTimeout=0;LoginTimeout=0"),
              u"DSN=m;CHARSET=utf8mb4;AUTO_RECONNECT=0;"_s);
    EXPECT_EQ(text(u"Driver=MySQL;LoginTimeout=-1;StatementTimeout=2147483647;"),
              u"Driver=MySQL;LoginTimeout=-1;StatementTimeout=2147483647;CONN_TIMEOUT=15;READ_TIMEOUT=86402;"
              "WRITE_TIMEOUT=86402;CHARSET=utf8mb4;AUTO_RECONNECT=0;"_s);
    EXPECT_EQ(text(u"Driver=/opt/sqlite/box.so;"), u"Driver=/opt/sqlite/box.so;"_s);
    EXPECT_EQ(text(u"DSN=m;", u"Driver=MariaDB;LoginTimeout=4;"),
              u"DSN=m;CONN_TIMEOUT=4;READ_TIMEOUT=62;WRITE_TIMEOUT=62;CHARSET=utf8mb4;AUTO_RECONNECT=0;"_s);
    EXPECT_EQ(database::connectionValue(u"Driver={a;b};PWD=x=y; uid = u", u"pwd"), u"x=y"_s);
    EXPECT_EQ(database::connectionValue(u"Driver={a;b};PWD=x=y; uid = u", u"UID"), u"u"_s);
    EXPECT_EQ(database::connectionValue(u"Driver={a;b};PWD=x=y; uid = u", u"driver"), u"a;b"_s);
    const std::tuple<QString, QString, bool> rows[] = {
        {u";UID=u"_s, u"u"_s, true},           {u"A=;UID=u"_s, u"u"_s, true},     {u"=x;UID=u"_s, u"u"_s, true},
        {u"A;UID= {u;v} ;"_s, u"u;v"_s, true}, {u"A={x};UID={"_s, u"{"_s, false}, {u"A= {x;UID=u"_s, u""_s, false},
        {u"A=b{;UID={}"_s, u""_s, true},       {u"UID=u"_s, u"u"_s, true},        {u"A=;B={c"_s, u""_s, false},
    };
    for (const auto &[text, user, closed] : rows) {
        EXPECT_EQ(database::connectionValue(text, u"uid"), user) << text.toStdString();
        EXPECT_EQ(database::bracesAreClosed(text), closed) << text.toStdString();
    }
}

TEST(StoredConnection, IsReadAsItWasStored) {
    const TestFolder folder;
    const platform::Settings settings(folder.path());
    EXPECT_EQ(database::storedConnection(settings), std::nullopt);
    for (const QString &text : {u"DSN=a;PWD={b;c};"_s, u""_s}) {
        ASSERT_TRUE(database::storeConnection(settings, text));
        EXPECT_EQ(database::storedConnection(settings), text);
    }
}

TEST(ResultTable, ReturnsEveryCellAcrossItsBlocks) {
    database::ResultTable table({u"zskid"_s, u"ISBN"_s, u"marc"_s});
    const auto cell = [](int i) -> QString { // a null QString represents NULL
        const int size = i % 500 == 0 ? 300000 : i % 7 * (i % 1000);
        return i % 5 == 0 && size < 300000 ? QString() : QString(size, QChar(u'一' + i % 1000));
    };
    for (int i = 0; i < 3 * 2000; ++i)
        if (cell(i).isNull())
            table.appendNull();
        else
            table.append(cell(i));
    ASSERT_EQ(table.rowCount(), 2000);
    for (int i = 0; i < 3 * 2000; ++i)
        ASSERT_TRUE(table.text(i / 3, i % 3) == cell(i) && table.isNull(i / 3, i % 3) == cell(i).isNull()) << i;
    EXPECT_EQ(table.column(u"isbn"), 1);
    for (const QStringView none : {u"edtion", u"marcs", u"marx"})
        EXPECT_EQ(table.column(none), std::nullopt);
}

TEST(Servers, AreRecognisedByTheNamesOfDriverAndServer) {
    using namespace database;
    const DriverRow &guess = guessedDriver(std::array{QString(), u"libsqlite3odbc.so"_s});
    EXPECT_TRUE(&driverNamed({}, u"PostgreSQL", guess) == &guess && guess.file && guess.server == Server::Sqlite);
    for (const auto &[driver, server, known] : {std::tuple(u"libtdsodbc.so", u"", Server::SqlServer),
                                                {u"unknown.so", u"PostgreSQL 15", Server::PostgreSql},
                                                {u"unknown.so", u"MySQL", Server::MariaDb},
                                                {u"unknown.so", u"else", Server::Other}}) {
        const DriverRow &row = driverNamed(driver, server, guess);
        EXPECT_TRUE(row.server == known && row.calls == TextForm::Wide && !row.file) << int(known);
        EXPECT_TRUE(isOpenedAsFor(row, row) && !isOpenedAsFor(guess, row) && !isOpenedAsFor(row, guess));
    }
}

TEST(Whereabouts, NameDatabaseServerAndFile) {
    const auto told = [](const QString &text) {
        const database::Whereabouts found = database::whereabouts(text);
        return QStringList{found.name, found.server, found.file}.join(u'|');
    };
    EXPECT_EQ(told(u"PROVIDER=MSDASQL;Driver=SQLite3;Database=/a b/馆.db;"_s), u"馆.db||/a b/馆.db"_s);
    EXPECT_EQ(told(u"Driver=/a/libsqlite3odbc.so;Database=馆.db;"_s), u"馆.db||馆.db"_s);
    EXPECT_EQ(told(u"Driver={PostgreSQL Unicode};Server=lib;Port=1;Database=d;"_s), u"d|lib|"_s);
    EXPECT_EQ(told(u"Driver=SQL Server;Server=主机,14330;Database=d;"_s), u"d|主机,14330|"_s);
    EXPECT_EQ(told(u"Driver=SQL Server;Server=(local)\\lib;Database=d"_s), u"d|(local)\\lib|"_s);
    const QString folder = qEnvironmentVariable("ODBCSYSINI"); // of the data sources of this program
    EXPECT_EQ(told(u"DSN=馆藏;UID=u;"_s), u"a.sqlite||"_s + folder + u"/a.sqlite");
    EXPECT_EQ(told(u"DSN=总馆;UID=u;"_s), u"library|127.0.0.1|"_s);
    EXPECT_EQ(told(u"DSN=nothing of that name;UID=u;"_s), u"nothing of that name||"_s);
}
