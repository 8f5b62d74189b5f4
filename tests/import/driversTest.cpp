// Drivers under arbitrary names: the settings of a connection must not depend on the name of its driver.
#include "database/callLimit.h"
#include "import/daoruClass.h"
#include "platform/codepage936.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include <poll.h>

namespace {

QByteArray bytesOf(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

struct Kind {
    TestServer server;
    QString driver;  // as registered by Debian
    QString library; // the driver's file
    QString other;   // a name that suggests another server
    QString lying;   // the file name of a driver that needs the opposite settings
    QString end;     // selects the sessions to end, or ends them
};

const QString endPostgres =
    u"select pg_terminate_backend(pid) from pg_stat_activity where usename='tester' and pid<>pg_backend_pid()"_s;
const Kind kinds[] = {
    {TestServer::Sqlite, u"SQLite3"_s, u"libsqlite3odbc.so"_s, u"PostgreSQL old"_s, u"psqlodbcw.so"_s, {}},
    {TestServer::PostgreSql, u"PostgreSQL Unicode"_s, u"psqlodbcw.so"_s, u"SQLite new"_s, u"libmaodbc.so"_s,
     endPostgres},
    {TestServer::PostgreSql, u"PostgreSQL ANSI"_s, u"psqlodbca.so"_s, u"SQL Server new"_s, u"psqlodbcw.so"_s,
     endPostgres},
    {TestServer::MariaDb, u"MariaDB Unicode"_s, u"libmaodbc.so"_s, u"MySQL"_s, u"psqlodbcw.so"_s,
     u"select id from information_schema.processlist where user='tester' and id<>connection_id()"_s},
};

void PrintTo(const Kind &kind, std::ostream *out) {
    *out << kind.driver.toStdString();
}

// Registers these drivers also under other names and from other files, with a data source for each name. The driver
// manager reads its configuration path once per process.
class Machine final : public testing::Environment {
public:
    void SetUp() override {
        QByteArray registered = bytesOf(u"/etc/odbcinst.ini"_s), sources;
        for (const Kind &kind : kinds) {
            ASSERT_TRUE(QDir(folder()).mkpath(kind.library));
            ASSERT_TRUE(QFile::copy(pathOf(kind), boxOf(kind)) && QFile::copy(pathOf(kind), lyingOf(kind)));
            registered += "\n[" + kind.other.toUtf8() + "]\nDriver=" + pathOf(kind).toUtf8() + "\n[Library " +
                          kind.library.toUtf8() + "]\nDriver=" + boxOf(kind).toUtf8() + '\n';
            QString pairs = kind.server == TestServer::Sqlite ? QString() : TestDatabase::textOf(kind.server);
            pairs.replace(u';', u'\n').remove(0, pairs.indexOf(u'\n') + 1);
            if (kind.server == TestServer::PostgreSql)
                pairs.replace(u"Server="_s, u"Servername="_s);
            for (const QString &driver : namesOf(kind))
                sources += '[' + sourceOf(kind, driver).toUtf8() + "]\nDriver=" + driver.toUtf8() + '\n' +
                           pairs.toUtf8() + '\n';
        }
        write(u"odbcinst.ini"_s, registered);
        write(u"odbc.ini"_s, sources);
        qputenv("ODBCSYSINI", folder().toUtf8());
    }

    // Returns connection texts with each of the names and with a data source for each.
    static QStringList textsOf(const Kind &kind, const QString &pairs) {
        QStringList texts;
        for (const QString &driver : namesOf(kind)) {
            texts.append(u"Driver={" + driver + u"};" + pairs);
            texts.append(u"DSN=" + sourceOf(kind, driver) + u';' +
                         (kind.server == TestServer::Sqlite ? pairs : u"UID=tester;PWD=Tarvex-1;AUTO_RECONNECT=1;"_s));
        }
        return texts;
    }

private:
    static QString folder() {
        static const QTemporaryDir made;
        return made.path();
    }
    static QString pathOf(const Kind &kind) { return u"/usr/lib/" TEST_ARCHITECTURE "/odbc/" + kind.library; }
    static QString boxOf(const Kind &kind) { return folder() + u'/' + kind.library + u"/box.so"; }
    static QString lyingOf(const Kind &kind) { return folder() + u'/' + kind.library + u'/' + kind.lying; }
    static QStringList namesOf(const Kind &kind) {
        return {kind.driver, kind.other, u"Library " + kind.library, pathOf(kind), boxOf(kind), lyingOf(kind)};
    }
    static QString sourceOf(const Kind &kind, const QString &driver) {
        return kind.library.first(6) + QString::number(qHash(kind.library + driver));
    }
    static void write(const QString &name, const QByteArray &bytes) {
        QFile file(folder() + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
};
[[maybe_unused]] const auto *machine = testing::AddGlobalTestEnvironment(new Machine);

} // namespace

class DriversTest : public testing::TestWithParam<Kind> {
protected:
    // Ends the sessions that connection pools keep, and waits until the end reaches this process.
    void endSessions() const {
        if (GetParam().end.isEmpty())
            return;
        const QStringList others = database.column(GetParam().end);
        for (const QString &other : others)
            if (GetParam().server == TestServer::MariaDb)
                database.run(u"kill "_s + other);
        std::vector<pollfd> looks;
        for (const int socket : database::CallLimit::sockets())
            looks.push_back({.fd = socket, .events = POLLIN, .revents = 0});
        EXPECT_GT(::poll(looks.data(), nfds_t(looks.size()), 10'000), 0);
    }

    TestDatabase database{GetParam().server};
};

INSTANTIATE_TEST_SUITE_P(Kinds, DriversTest, testing::ValuesIn(kinds),
                         [](const auto &info) { return info.param.library.section(u'.', 0, 0).toStdString(); });

TEST_P(DriversTest, KeepEveryByteUnderAnyName) {
    QList<QByteArray> lines = bytesOf(QStringLiteral(SAMPLE_FILE)).split('\n');
    lines.removeAll({});
    ASSERT_EQ(lines.size(), 376);
    QStringList records;
    for (const QByteArray &line : lines)
        records.append(platform::decode(line.trimmed()));
    records.append(recordOf(u"200=1 $a'); delete from zsk; -- \\$f路\\径\\'盘勘还"_s));
    const QString pairs = database.connectionString().section(u';', 2) + u"AUTO_RECONNECT=1;"; // without the driver
    ScriptedHost host;
    platform::RunBoxes boxes(host);
    for (const QString &text : Machine::textsOf(GetParam(), pairs)) {
        database::LinkPool links({u"taoluTable"_s});
        const database::SessionState state{links, u"PROVIDER=MSDASQL;" + text};
        database.run(u"delete from taoluTable"_s);
        for (int i = 0; i < records.size(); ++i) {
            if (i == records.size() / 2 || i == records.size() - 1)
                endSessions();
            ASSERT_TRUE(importing::daoruRecord(records[i], state, boxes).wentIn) << text.toStdString() << i;
        }
        auto connection = database::Connection::open(links, state.connectionString);
        const auto rows = connection.value().query(u"select marc,bookname from taoluTable order by zskid"_s).value();
        ASSERT_EQ(rows->rowCount(), records.size());
        for (int i = 0; i < records.size(); ++i)
            ASSERT_EQ(rows->text(i, 0), records[i]) << text.toStdString() << i;
    }
}

// A driver that its name does not identify as SQLite's creates no file either.
TEST(DriversOfFiles, MakeNone) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"none.sqlite"_s);
    for (const QString &text : Machine::textsOf(kinds[0], u"Database="_s + file + u';')) {
        database::LinkPool links;
        EXPECT_FALSE(database::Connection::open(links, text)) << text.toStdString();
        EXPECT_FALSE(QFile::exists(file)) << text.toStdString();
    }
}
