// The database servers of the tests: SQLite files, a PostgreSQL and a MariaDB server. The test run starts and stops the
// servers (scripts/test-servers); a test program that needs them is added by house_tests with SERVERS.
#pragma once

#include "database/linkPool.h"
#include "database/sublib.h"
#include "support/qtPrinters.h"
#include <QProcess>
#include <QTemporaryDir>

enum class TestServer { Sqlite, PostgreSql, MariaDb };

// A library database with empty tables, created by the schema script of its server.
class TestDatabase {
public:
    explicit TestDatabase(TestServer server = TestServer::Sqlite);

    static QString nameOf(TestServer server); // the name in the file name of its schema script
    static QString textOf(TestServer server); // the connection text of a running server
    const QString &connectionString() const { return state.connectionString; }
    QString file() const { return m_folder.filePath(QStringLiteral("library.sqlite")); } // SQLite only

    // Runs statements; the test fails if they fail.
    void run(const QString &script) const;
    // The first column of the selected rows, or the error text as the only value; selected() joins them by blanks.
    QStringList column(const QString &statement) const;
    QString selected(const QString &statement) const { return column(statement).join(u' '); }

    // Opens a connection with this database's connection text followed by `more`.
    platform::Result<database::Connection> open(const QString &more = {}) const {
        return database::Connection::open(state.links, connectionString() + more);
    }
    void endKeptLinks() const { state.links.dropKept(); }

private:
    QTemporaryDir m_folder;
    database::LinkPool m_links; // destroyed before the folder

public:
    database::SessionState state{m_links, {}}; // with the connection text as a user would have stored it
};

// Runs the tests of a TestWithParam<TestServer> on every server.
#define ON_ALL_SERVERS(suite)                                                                                          \
    INSTANTIATE_TEST_SUITE_P(Servers, suite,                                                                           \
                             testing::Values(TestServer::Sqlite, TestServer::PostgreSql, TestServer::MariaDb),         \
                             [](const auto &info) { return TestDatabase::nameOf(info.param).toStdString(); })

inline void PrintTo(TestServer server, std::ostream *out) {
    *out << TestDatabase::nameOf(server).toStdString();
}

// Creates an empty file, which is an SQLite database without tables. The program itself never creates one.
void makeEmptyFile(const QString &path);

// Returns the text of a file in data/schema.
QString schemaScript(const QString &name);

// Run commands of scripts/test-servers, such as "stop-postgresql", one after the other. commandServers() waits until
// the command ends; startCommands() returns at once.
void commandServers(const QString &command);
void startCommands(QProcess &process, const QStringList &commands);
