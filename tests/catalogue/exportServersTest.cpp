// The export from a server that is not there all the time.
#include "catalogue/exportRun.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct TenRows final : catalogue::ExportSurface {
    int rowCount() const override { return 11; }
    QString key(int row) const override { return QString::number(row); }
    void showProgress(const QString &) override {}
    bool stopPressed() const override { return false; }
    void goOn() override {}
};

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
    host.willChoose(path);
    TenRows rows;
    catalogue::ExportRun(rows, host, {database.connectionString()}).daochuMarc();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> records = file.readAll().split('\n');
    ASSERT_EQ(records.size(), 11);
    for (int row = 1; row <= 10; ++row)
        EXPECT_EQ(records[row - 1].contains(QByteArray("title").append(QByteArray::number(row))), row != 7 && row != 8)
            << row;
}
