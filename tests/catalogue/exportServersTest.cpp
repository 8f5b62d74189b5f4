// The export from a server that is not there all the time.
#include "catalogue/exportRun.h"
#include "support/databaseServers.h"
#include "support/killedChild.h"
#include "support/scriptedHost.h"
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Rows final : catalogue::ExportSurface {
    explicit Rows(int count)
        : m_count(count) {}
    int rowCount() const override { return m_count + 1; }
    QString key(int row) const override { return QString::number(row); }
    void showProgress(const QString &) override {}
    bool stopPressed() const override { return false; }
    void goOn() override {}

private:
    int m_count;
};

// What the file holds, record by record; the last entry is what stands behind the last line end.
QList<QByteArray> exported(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().split('\n');
}

bool holdsTitle(const QByteArray &record, int row) {
    return record.contains(QByteArray("title").append(QByteArray::number(row)).append('\x1e'));
}

void run(const TestDatabase &database, ScriptedHost &host, int count, const QString &path) {
    host.willChoose(path);
    Rows rows(count);
    catalogue::ExportRun(rows, host, {database.connectionString()}).daochuMarc();
}

} // namespace

// Bare are the rows whose turn came while the server was away, no others; a restart between two rows costs none.
TEST(ExportFromServer, comesBackWithTheServer) {
    const TestDatabase database(TestServer::PostgreSql);
    for (int i = 1; i <= 10; ++i)
        database.run(u"insert into zsk (zskid,bookname) values (%1,'title%1')"_s.arg(i));
    ScriptedHost host;
    host.onYield = [row = 0]() mutable {
        ++row;
        if (row == 2 || row == 6)
            commandServers(u"stop-postgresql"_s);
        if (row == 2 || row == 8)
            commandServers(u"start-postgresql"_s);
    };
    const QString path = host.folder + u"/export.iso";
    run(database, host, 10, path);
    const QList<QByteArray> records = exported(path);
    ASSERT_EQ(records.size(), 11);
    for (int row = 1; row <= 10; ++row)
        EXPECT_EQ(holdsTitle(records[row - 1], row), row != 7 && row != 8) << row;
}

// A killed export leaves whole records but for the last, and keeps nobody from the next.
TEST(ExportFromServer, aKilledRunLeavesWholeRecords) {
    constexpr int count = 30000;
    const TestDatabase database(TestServer::Sqlite);
    database.run(u"insert into zsk (zskid,bookname) with recursive n(i) as (select 1 union all select i+1 from n where "
                 "i<%1) select i,'title'||i from n"_s.arg(count));
    ScriptedHost host;
    const QString path = host.folder + u"/export.iso";
    killInMidWork([&] { run(database, host, count, path); }, [&] { return QFileInfo(path).size() > 0; });
    const QList<QByteArray> cut = exported(path);
    EXPECT_GT(cut.size(), 1);
    for (int row = 1; row < cut.size(); ++row)
        ASSERT_TRUE(holdsTitle(cut[row - 1], row)) << row;
    run(database, host, 50, path + u".again");
    EXPECT_EQ(exported(path + u".again").size(), 51);
}
