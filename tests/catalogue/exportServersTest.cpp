// The statements on real servers, and an export whose server is away for a time.
#include "catalogue/exportRun.h"
#include "catalogue/listStatements.h"
#include "support/databaseServers.h"
#include "support/killedChild.h"
#include "support/scriptedHost.h"

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

// Returns the records of the file; the last entry is the text after the last line end.
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
    catalogue::ExportRun(rows, host, database.state).daochuMarc();
}

} // namespace

// Only rows exported while the server is away become empty records; a restart between two rows loses none.
TEST(ExportFromServer, ContinuesWhenTheServerReturns) {
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

// A killed export leaves complete records except for the last one, and does not prevent the next export.
TEST(ExportFromServer, AKilledRunLeavesCompleteRecords) {
    constexpr int count = 30000;
    const TestDatabase database(TestServer::Sqlite);
    database.run(u"insert into zsk (zskid,bookname) with recursive n(i) as (select 1 union all select i+1 from n where "
                 "i<%1) select i,'title'||i from n"_s.arg(count));
    ScriptedHost host;
    const QString path = host.folder + u"/export.iso";
    database.endKeptLinks();
    killInMidWork([&] { run(database, host, count, path); }, [&] { return QFileInfo(path).size() > 0; });
    const QList<QByteArray> cut = exported(path);
    EXPECT_GT(cut.size(), 1);
    for (int row = 1; row < cut.size(); ++row)
        ASSERT_TRUE(holdsTitle(cut[row - 1], row)) << row;
    run(database, host, 50, path + u".again");
    EXPECT_EQ(exported(path + u".again").size(), 51);
}

TEST(ListStatements, FindTheSampleOnEveryServer) {
    for (const TestServer server : {TestServer::Sqlite, TestServer::PostgreSql, TestServer::MariaDb}) {
        SCOPED_TRACE(TestDatabase::nameOf(server).toStdString());
        const TestDatabase database(server);
        database.run(schemaScript(u"sample.sql"_s));
        database.run(uR"(insert into zsk (zskid,classcode) values (500,'TP3');
            insert into sck (barcode,zskid,price,borrowstatus) values ('B1',500,12.5,'1');
            insert into sck (barcode,zskid,rollcode,borrowstatus) values ('B2',500,'上',null);
            insert into jhsk (barcode,yhdate) values ('B2','2006-04-05');)"_s);
        auto connection = database.open();
        const auto rows = [&](const QString &statement) { return connection.value().query(statement).value(); };
        EXPECT_EQ(rows(catalogue::catalogueStatement(u"zskid=500"_s, u"catatime"_s))->columnNames().join(u'|'),
                  u"控制号|isbn|书   名|著 者|分类号|出版社|册 数|入库日期"_s);
        EXPECT_EQ(rows(catalogue::detailStatement(500))->text(0, 0), u"TP3"_s);
        const auto copies = rows(catalogue::copiesStatement(500));
        ASSERT_EQ(copies->rowCount(), 2);
        const int lent = copies->text(0, 0) == u"B2" ? 0 : 1;
        EXPECT_EQ(copies->columnNames().join(u'|'), u"条形码|卷 次|藏 地|价 格|状 态|可借否|应还日期"_s);
        EXPECT_EQ(copies->text(lent, 1) + copies->text(lent, 5) + copies->text(lent, 6), u"上2006/04/05"_s);
        EXPECT_EQ(copies->text(1 - lent, 5) + copies->text(1 - lent, 6), u"1"_s);
        EXPECT_GE(
            rows(catalogue::reportStatement(u"publisher='中华书局'"_s, u"bookcount Desc,bookname Asc"_s))->rowCount(),
            10);
        const auto exported = rows(catalogue::exportStatement(u"68"_s));
        EXPECT_EQ(exported->text(0, exported->column(u"appendix").value()), u"光盘1片"_s);
    }
}
