#include "support/databaseServers.h"
#include "database/script.h"

namespace {

QString fileText(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

// scripts/test-clusters sets TEST_SERVERS to use other servers than the test run.
QString serversFile() {
    return qEnvironmentVariable("TEST_SERVERS", QStringLiteral(TEST_SERVERS_FILE));
}

} // namespace

QString TestDatabase::nameOf(TestServer server) {
    constexpr auto names = std::to_array<QStringView>({u"sqlite", u"postgresql", u"mariadb"});
    return names[size_t(server)].toString();
}

QString TestDatabase::textOf(TestServer server) {
    const QString start = TestDatabase::nameOf(server) + u'=';
    for (const QString &line : fileText(serversFile()).split(u'\n'))
        if (line.startsWith(start))
            return line.sliced(start.size());
    ADD_FAILURE() << "the server is not running: " << start.toStdString();
    return {};
}

TestDatabase::TestDatabase(TestServer server)
    : m_links({u"taoluTable"_s, u"zsk"_s, u"sck"_s, u"jhsk"_s}) {
    makeEmptyFile(file());
    state.connectionString =
        u"PROVIDER=MSDASQL;" +
        (server == TestServer::Sqlite
             ? QString(u"Driver=SQLite3;Database=" + file() + u";JournalMode=WAL;SyncPragma=NORMAL;Timeout=5000;")
             : textOf(server));
    auto connection = open();
    if (!connection) {
        ADD_FAILURE() << connection.failure().description.toStdString();
        return;
    }
    if (server != TestServer::Sqlite)
        for (const QStringView table : {u"taoluTable", u"zsk", u"sck", u"jhsk"})
            (void)connection.value().execute(u"drop table if exists " + table);
    const platform::Status made = runScript(connection.value(), schemaScript(nameOf(server) + u".sql"));
    EXPECT_TRUE(made) << made.failure().description.toStdString();
}

void TestDatabase::run(const QString &script) const {
    auto connection = open();
    ASSERT_TRUE(connection) << connection.failure().description.toStdString();
    const platform::Status ran = runScript(connection.value(), script);
    EXPECT_TRUE(ran) << ran.failure().description.toStdString() << "\n" << script.toStdString();
}

QStringList TestDatabase::column(const QString &statement) const {
    auto connection = open();
    if (!connection)
        return {connection.failure().description};
    const auto rows = connection.value().query(statement);
    if (!rows)
        return {rows.failure().description};
    QStringList values;
    for (int row = 0; row < rows.value()->rowCount(); ++row)
        values.append(rows.value()->text(row, 0));
    return values;
}

void makeEmptyFile(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
}

QString schemaScript(const QString &name) {
    return fileText(QStringLiteral(TEST_SCHEMA_FOLDER) + u'/' + name);
}

void commandServers(const QString &command) {
    EXPECT_EQ(QProcess::execute(QStringLiteral(TEST_SERVERS_SCRIPT), {command, serversFile()}), 0)
        << command.toStdString();
}

void startCommands(QProcess &process, const QStringList &commands) {
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(u"bash"_s, QStringList{u"-ec"_s, u"s=$1 f=$2; shift 2; for c; do \"$s\" \"$c\" \"$f\"; done"_s,
                                         u"commands"_s, QStringLiteral(TEST_SERVERS_SCRIPT), serversFile()} +
                                 commands);
}
