// The driver manager of the tests: with connection pooling, which makes broken connections hardest to detect, and with
// data sources in the user's settings.
#pragma once

#include "database/dataSources.h"
#include "support/databaseServers.h"
#include "support/testFolder.h"
#include <sys/wait.h>
#include <unistd.h>

class DriverManager final : public testing::Environment {
public:
    void SetUp() override {
        QFile system(u"/etc/odbcinst.ini"_s);
        ASSERT_TRUE(system.open(QIODevice::ReadOnly));
        write(u"odbcinst.ini"_s,
              "[ODBC]\nPooling=Yes\n" + system.readAll().replace("Driver=", "CPTimeout=60\nDriver="));
        const QString postgres = TestDatabase::textOf(TestServer::PostgreSql);
        write(u"odbc.ini"_s,
              "[馆藏]\nDriver=SQLite3\nDatabase=" + m_folder.filePath(u"a.sqlite"_s).toUtf8() +
                  "\n[空]\nDriver=SQLite3\nNoCreat=0\nDatabase=" + m_folder.filePath(u"gone.sqlite"_s).toUtf8() +
                  "\n[总馆]\n" +
                  QString(postgres).replace(u"Server="_s, u"Servername="_s).replace(u';', u'\n').toUtf8());
        write(u"a.sqlite"_s, {});
        qputenv("ODBCSYSINI", m_folder.path().toUtf8());
        expectPooling();
    }

    static QString folder() { return qEnvironmentVariable("ODBCSYSINI"); }

private:
    // The driver manager reads its files once in a process.
    static void expectPooling() {
        const TestFolder folder;
        for (const auto &[said, pools] :
             {std::pair("1", true), {"Yes", true}, {"on", true}, {"0", false}, {"No", false}, {"off", false}}) {
            folder.file(u"odbcinst.ini"_s, QByteArray("[ODBC]\nPooling=") + said + '\n');
            const pid_t child = fork();
            if (child == 0) {
                qputenv("ODBCSYSINI", folder.path().toUtf8());
                _exit(database::driverManagerPools());
            }
            int status = -1;
            EXPECT_EQ(waitpid(child, &status, 0), child);
            EXPECT_EQ(WEXITSTATUS(status), int(pools)) << said;
        }
    }
    void write(const QString &name, const QByteArray &bytes) const {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    QTemporaryDir m_folder;
};
