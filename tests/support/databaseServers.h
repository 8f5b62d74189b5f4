// The database servers of the tests: a real SQLite file, a real PostgreSQL and a real MariaDB. The latter two are
// started and stopped by the test run (scripts/test-servers); a program that needs them is a house_tests with SERVERS.
#pragma once

#include "database/linkPool.h"
#include "database/sublib.h"
#include "support/qtPrinters.h"
#include <QProcess>
#include <QTemporaryDir>

enum class TestServer { Sqlite, PostgreSql, MariaDb };

// A library's database with empty tables, made by the server's own schema script.
class TestDatabase {
public:
    explicit TestDatabase(TestServer server = TestServer::Sqlite);

    static QString nameOf(TestServer server); // as its schema script is named
    static QString textOf(TestServer server); // the connection text of a running server
    const QString &connectionString() const { return state.connectionString; }
    QString file() const { return m_folder.filePath(QStringLiteral("library.sqlite")); } // of SQLite

    // Runs statements that must work.
    void run(const QString &script) const;
    // The first column of what a statement selects, or the fault; and joined by blanks.
    QStringList column(const QString &statement) const;
    QString selected(const QString &statement) const { return column(statement).join(u' '); }

    // A connection by the text of this database, with more behind it.
    platform::Result<database::Connection> open(const QString &more = {}) const {
        return database::Connection::open(state.links, connectionString() + more);
    }
    void endKeptLinks() const { state.links.dropKept(); }

private:
    QTemporaryDir m_folder;
    database::LinkPool m_links; // ends before the folder

public:
    database::SessionState state{m_links, {}}; // with the text as a person would have it stored
};

// Runs the tests of a TestWithParam<TestServer> on each of the servers.
#define ON_ALL_SERVERS(suite)                                                                                          \
    INSTANTIATE_TEST_SUITE_P(Servers, suite,                                                                           \
                             testing::Values(TestServer::Sqlite, TestServer::PostgreSql, TestServer::MariaDb),         \
                             [](const auto &info) { return TestDatabase::nameOf(info.param).toStdString(); })

inline void PrintTo(TestServer server, std::ostream *out) {
    *out << TestDatabase::nameOf(server).toStdString();
}

// Makes an empty file: a database of SQLite without tables. The program makes none.
void makeEmptyFile(const QString &path);

// The text of a file of data/schema.
QString schemaScript(const QString &name);

// Commands of scripts/test-servers, such as "stop-postgresql", one behind the other; or beside what goes on here.
void commandServers(const QString &command);
void startCommands(QProcess &process, const QStringList &commands);
