// An SQLite database of the test's own, with the tables of the schema and, on request, the sample rows.
#pragma once

#include "platform/database/script.h"
#include "platform/database/sublib.h"
#include "support/databaseServers.h"
#include "support/qtPrinters.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

class CatalogueDatabase {
public:
    CatalogueDatabase() {
        using namespace Qt::StringLiterals;
        state.connectionString = u"PROVIDER=MSDASQL;Driver=SQLite3;Database="_s + m_folder.filePath(u"books.db"_s) +
                                 u";JournalMode=WAL;SyncPragma=NORMAL;Timeout=1000";
        makeEmptyFile(m_folder.filePath(u"books.db"_s));
        runFile("sqlite.sql");
    }
    ~CatalogueDatabase() { platform::endKeptConnections(); }

    void runFile(const char *name) {
        QFile file(QStringLiteral(SCHEMA_FOLDER "/") + QLatin1StringView(name));
        EXPECT_TRUE(file.open(QFile::ReadOnly)) << name;
        run(QString::fromUtf8(file.readAll()));
    }
    void run(const QString &script) {
        auto connection = platform::Connection::open(state.connectionString);
        ASSERT_TRUE(connection) << connection.failure().description.toStdString();
        const platform::Status done = platform::runScript(connection.value(), script);
        EXPECT_TRUE(done) << (done ? "" : done.failure().description.toStdString());
    }
    // The first column of the query's rows.
    QStringList column(const QString &statement) {
        auto connection = platform::Connection::open(state.connectionString);
        auto rows = connection.value().query(statement);
        QStringList result;
        for (int row = 0; rows && row < rows.value()->rowCount(); ++row)
            result.append(rows.value()->text(row, 0));
        return result;
    }

    platform::SessionState state;

private:
    QTemporaryDir m_folder;
};
