// Database clusters that lose a node during a long run of the program's windows. RECORDS sets the number of records.
#include "catalogue/windows/zskListFrm.h"
#include "import/windows/frmDaoRuJindu.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"

namespace {

int wanted() {
    return qEnvironmentVariableIsSet("RECORDS") ? qEnvironmentVariableIntValue("RECORDS") : 20000;
}

int numberIn(const QString &text) {
    return QRegularExpression(u"[0-9]+"_s).match(text).captured().toInt();
}

class ClustersTest : public testing::TestWithParam<TestServer> {
protected:
    TestDatabase database{GetParam()};
    ScriptedHost host;
    QString name = TestDatabase::nameOf(GetParam());
    QProcess killing;
    int before = 0; // rows in the table just before a node was killed

    void SetUp() override { std::printf("%s\n", name.toUtf8().constData()); }
    void TearDown() override {
        EXPECT_TRUE(killing.waitForFinished(120000) || killing.state() == QProcess::NotRunning);
        EXPECT_EQ(killing.exitCode(), 0);
        commandServers(u"heal-" + name);
    }

    // Processes events between the records. Once the window reports a third as done, starts the commands, which run
    // concurrently.
    void killAtAThird(const QString &kill, const QString &table, const std::function<QString()> &said) {
        host.onYield = [this, kill, table, said] {
            QCoreApplication::processEvents();
            if (!before && numberIn(said()) >= wanted() / 3) {
                before = database.selected(u"select count(*) from " + table).toInt();
                startCommands(killing, {kill + name, u"fail-over-"_s + name});
            }
        };
    }

    void fillZsk(int count) const {
        for (int row = 1; row <= count;) {
            QStringList values;
            for (const int end = row + 1000; row < end && row <= count; ++row)
                values.append(u"(%1,'title%1')"_s.arg(row));
            database.run(u"insert into zsk (zskid,bookname) values " + values.join(u','));
        }
    }

    // Counts the outcomes of the records by the table and by the window.
    QMap<QString, int> tally(const importing::frmDaoRuJindu &window) const {
        auto connection = database.open();
        const auto rows = connection.value().query(u"select zskid,bookname from taoluTable"_s).value();
        QMap<int, QList<qint64>> stored; // keys by record number
        for (int row = 0; row < rows->rowCount(); ++row)
            stored[numberIn(rows->text(row, 1))].append(rows->text(row, 0).toLongLong());
        QMap<int, QString> refused;
        for (const auto &row : window.refused())
            refused[row.record] = row.reason;
        const QSet<qint64> keys(window.keys().begin(), window.keys().end());
        QMap<QString, int> tally;
        for (int i = 0; i < wanted(); ++i) {
            const QString named = refused[i].isEmpty()                   ? u"in"_s
                                  : refused[i].contains(u"可能已经入库") ? u"in doubt"_s
                                                                         : u"refused"_s;
            const bool known = named != u"in" || keys.contains(stored[i].value(0));
            ++tally[u"%1, %2 in the table"_s.arg(named).arg(stored[i].size()) + (known ? u""_s : u", key unknown"_s)];
        }
        return tally;
    }
};

INSTANTIATE_TEST_SUITE_P(Servers, ClustersTest, testing::Values(TestServer::PostgreSql, TestServer::MariaDb),
                         [](const auto &info) { return TestDatabase::nameOf(info.param).toStdString(); });

} // namespace

TEST_P(ClustersTest, AnImportLosesAndDoublesNothing) {
    const auto records = std::make_shared<marc::PreReadStore>();
    records->setRows(wanted());
    for (int i = 0; i < wanted(); ++i)
        records->setRecord(i, recordOf(u"010=  $dCNY8.00|200=1 $a题名%1$f著者"_s.arg(i)));
    for (const QString &kill : {u"kill-"_s, u"kill-other-"_s}) {
        database.run(u"delete from taoluTable"_s);
        host.boxes.clear();
        before = 0;
        importing::frmDaoRuJindu window(host, database.state, records);
        killAtAThird(kill, u"taoluTable"_s, [&] { return window.labJinDuShu->text(); });
        window.Text2->setText(QString::number(wanted()));
        window.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.barJinduTishi->isHidden(); }, 600000));
        TearDown();

        const QMap<QString, int> became = tally(window);
        for (const auto &[what, count] : became.asKeyValueRange())
            std::printf("  %8d %s\n", count, qPrintable(what));
        EXPECT_GT(before, 0);
        EXPECT_EQ(became[u"in, 1 in the table"_s], numberIn(window.labTishi->text()));
        EXPECT_EQ(became[u"in, 1 in the table"_s] + became[u"refused, 0 in the table"_s] +
                      became[u"in doubt, 0 in the table"_s] + became[u"in doubt, 1 in the table"_s],
                  wanted());
    }
}

TEST_P(ClustersTest, AnExportIsWhole) {
    fillZsk(wanted());
    catalogue::CatalogueOrder order{u"zskid"_s};
    catalogue::ZSKListFrm window(database.state, host, order, {});
    catalogue::Condition condition{u"zskid>0"_s, {}};
    QString by = u"zskid"_s;
    window.loadData(condition, by);
    killAtAThird(u"kill-"_s, u"zsk"_s, [&] { return window.labDaochu->text(); });
    const QString path = host.folder + u"/export.iso";
    host.willChoose(path);
    window.daochuMarc();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    int whole = 0, bare = 0;
    for (int row = 1; !file.atEnd(); ++row) {
        const bool titled =
            file.readLine().contains(QByteArray("title").append(QByteArray::number(row)).append('\x1e'));
        whole += titled;
        bare += !titled;
    }
    EXPECT_EQ(whole, wanted());
    EXPECT_EQ(bare, 0);
    EXPECT_EQ(numberIn(host.lastBox().text), wanted());
}

TEST_P(ClustersTest, AListIsWhole) {
    const int count = wanted() * 10;
    fillZsk(count);
    catalogue::CatalogueOrder order{u"zskid"_s};
    catalogue::ZSKListFrm window(database.state, host, order, {});
    startCommands(killing, {u"kill-reading-"_s + name, u"fail-over-"_s + name});
    ASSERT_TRUE(killing.waitForStarted());
    catalogue::Condition condition{u"zskid>0"_s, {}};
    QString by = u"zskid"_s;
    int lists = 0;
    do { // until the command has killed a node during a list
        window.loadData(condition, by);
        ASSERT_EQ(window.Grid1->rows(), count + 1) << lists;
        for (int row = 1; row <= count; ++row)
            ASSERT_EQ(window.Grid1->text(row, 0), QString::number(row));
        ++lists;
    } while (!killing.waitForFinished(0) && lists < 100);
    EXPECT_EQ(killing.exitCode(), 0);
    EXPECT_TRUE(host.boxes.isEmpty());
}

// An isolated node still accepts connections: the program uses no kept connection and no open session on it.
TEST_P(ClustersTest, AnIsolatedNodeIsNotUsed) {
    if (GetParam() != TestServer::MariaDb)
        return;
    auto session = database.open();
    database.run(u"insert  taolutable (bookname) values ('一')"_s);
    const QString node = u"select @@port"_s;
    const QString parted = session.value().query(node).value()->text(0, 0);
    commandServers(u"part-mariadb"_s);
    const auto rows = session.value().query(u"select bookname from taoluTable"_s);
    ASSERT_TRUE(rows) << rows.failure().description.toStdString();
    EXPECT_EQ(rows.value()->rowCount(), 1);
    EXPECT_NE(session.value().query(node).value()->text(0, 0), parted);
    database.run(u"insert  taolutable (bookname) values ('二')"_s);
    EXPECT_EQ(database.selected(u"select bookname from taoluTable order by zskid"_s), u"一 二"_s);
}
