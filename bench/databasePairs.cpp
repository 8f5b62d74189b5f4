#include "catalogue/listStatements.h"
#include "catalogue/windows/zskListFrm.h"
#include "database/linkPool.h"
#include "database/sqlDialect.h"
#include "driverLoop.h"
#include "import/recordRow.h"
#include "import/windows/frmDaoRuJindu.h"
#include "marc/recordCutter.h"
#include "pairs.h"
#include <QFile>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

QByteArray asSqlite(const QString &statement) {
    return database::rewrite(statement, database::Server::Sqlite, {}).toUtf8();
}

QByteArray countOf(const QString &database) {
    DriverLoop loop(connectionTo(database));
    loop.bind(1);
    return loop.isOpen() && loop.fetchOne("select count(*) from taoluTable") ? loop.firstValue() : QByteArray();
}

std::vector<QByteArray> insertsOf(const marc::PreReadStore &store) {
    std::vector<QByteArray> statements;
    for (int row = 0; row < store.rowCount(); ++row)
        if (const auto values = importing::recordRow(store.record(row)))
            statements.push_back(asSqlite(importing::insertStatement(*values)));
    return statements;
}

std::optional<double> importInWindow(const BenchStage &stage, std::shared_ptr<const marc::PreReadStore> records) {
    const QString database = stage.freshPath(u"import.db");
    QFile::copy(stage.emptyDatabase(), database);
    BenchHost host;
    database::LinkPool links;
    const database::SessionState state{links, connectionTo(database)};
    importing::frmDaoRuJindu window(host, state, records);
    window.Text1->setText(u"0"_s);
    window.Text2->setText(QString::number(records->rowCount()));
    const auto taken = timed([&window] {
        window.show();
        window.activate();
        settle();
        return true;
    });
    links.dropKept();
    return countOf(database) == QByteArray::number(importCount) ? taken : std::nullopt;
}

std::optional<double> importByLoop(const BenchStage &stage, const std::vector<QByteArray> &statements) {
    const QString database = stage.freshPath(u"loop.db");
    QFile::copy(stage.emptyDatabase(), database);
    DriverLoop loop(connectionTo(database));
    const auto taken = timed([&] {
        return std::ranges::all_of(statements, [&loop](const QByteArray &insert) { return loop.execute(insert); });
    });
    return countOf(database) == QByteArray::number(importCount) ? taken : std::nullopt;
}

// The list window on a database.
struct List {
    explicit List(const QString &database)
        : state{links, connectionTo(database)}
        , window(state, host, order, {.showDetail = [](qint32) {}, .showOrderby = [] {}, .showReport = [](auto &) {}}) {
    }

    bool load(int rows) {
        QString condition, sorting;
        window.loadData(condition, sorting);
        settle();
        return window.Grid1->rows() == rows + 1;
    }

    BenchHost host;
    database::LinkPool links;
    database::SessionState state;
    catalogue::CatalogueOrder order;
    catalogue::ZSKListFrm window;
};

std::optional<double> listInWindow(const BenchStage &stage) {
    List list(stage.listDatabase());
    putUp(list.window);
    return timed([&list] { return list.load(listedRows); });
}

std::optional<double> exportInWindow(const BenchStage &stage) {
    List list(stage.exportDatabase());
    putUp(list.window);
    if (!list.load(exportedRows))
        return std::nullopt;
    list.host.chosenFile = stage.freshPath(u"export.iso");
    return timed([&list] {
        list.window.daochuMarc();
        settle();
        return marc::lineCount(list.host.chosenFile).value() == exportedRows;
    });
}

std::optional<double> selectByLoop(const BenchStage &stage) {
    constexpr int columns = 17;
    DriverLoop loop(connectionTo(stage.exportDatabase()));
    std::vector<QByteArray> statements;
    for (int key = 1; key <= exportedRows; ++key)
        statements.push_back(asSqlite(catalogue::exportStatement(QString::number(key))));
    loop.bind(columns);
    return timed([&] {
        return std::ranges::all_of(statements, [&loop](const QByteArray &select) { return loop.fetchOne(select); }) &&
               loop.firstValue() == QByteArray::number(exportedRows);
    });
}

} // namespace

void databasePairs(Table &table, const BenchStage &stage) {
    const auto records = readStore(stage.importRecords());
    const std::vector<QByteArray> statements = insertsOf(*records);
    const auto importing = takeTurns(
        "import", 3, {[&] { return importInWindow(stage, records); }, [&] { return importByLoop(stage, statements); }});
    table.speed("import 20,000 records, in the window | a loop of inserts", importing[0], importing[1], 0.5);

    const QString shell = u"sqlite3 " + quoted(stage.listDatabase()) + u' ' +
                          quoted(QString::fromUtf8(asSqlite(catalogue::catalogueStatement({}, {})))) + u" >/dev/null";
    const auto listing = takeTurns("listing", 3, {[&] { return listInWindow(stage); }, command(shell)});
    table.speed("list 1,000,000 rows, in the window | sqlite3", listing[0], listing[1], 0.25);

    const auto exporting =
        takeTurns("export", 3, {[&] { return exportInWindow(stage); }, [&] { return selectByLoop(stage); }});
    table.speed("export 100,000 rows, in the window | a loop of selects", exporting[0], exporting[1], 0.5);
}

} // namespace bench
