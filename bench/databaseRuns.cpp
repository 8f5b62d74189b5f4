#include "databaseRuns.h"
#include "catalogue/listStatements.h"
#include "database/sqlDialect.h"
#include "driverLoop.h"
#include "import/recordRow.h"
#include "import/windows/frmDaoRuJindu.h"
#include "marc/recordCutter.h"
#include "sideBySide.h"
#include <QDialog>
#include <QFile>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

QByteArray asSqlite(const QString &statement) {
    return database::rewrite(statement, database::Server::Sqlite, {}).toUtf8();
}

int countOf(const QString &database) {
    DriverLoop loop(connectionTo(database));
    loop.bind(1);
    return loop.isOpen() && loop.fetchOne("select count(*) from taoluTable") ? loop.firstValue().toInt() : -1;
}

} // namespace

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
    const bool all = countOf(database) == records->rowCount();
    QFile::remove(database);
    return all ? taken : std::nullopt;
}

std::optional<double> importByLoop(const BenchStage &stage, const std::vector<QByteArray> &statements) {
    const QString database = stage.freshPath(u"loop.db");
    QFile::copy(stage.emptyDatabase(), database);
    std::optional<double> taken;
    {
        DriverLoop loop(connectionTo(database));
        taken = timed([&] {
            return std::ranges::all_of(statements, [&loop](const QByteArray &insert) { return loop.execute(insert); });
        });
    }
    const bool all = countOf(database) == int(statements.size());
    QFile::remove(database);
    return all ? taken : std::nullopt;
}

List::List(const QString &database)
    : state{links, connectionTo(database)}
    , window(state, host, order,
             {.showDetail = [](qint32) {},
              .showOrderby = [] {},
              .showReport = [this](const auto &report) { showReport(report); }}) {}

bool List::load(int rows) {
    QString condition, sorting;
    window.loadData(condition, sorting);
    settle();
    return window.Grid1->rows() == rows + 1;
}

std::optional<double> listInWindow(const QString &catalogue, int rows) {
    List list(catalogue);
    putUp(list.window);
    return timed([&] { return list.load(rows); });
}

std::optional<double> exportInWindow(const BenchStage &stage, const QString &catalogue, int rows) {
    List list(catalogue);
    putUp(list.window);
    if (!list.load(rows))
        return std::nullopt;
    list.host.chosenFile = stage.freshPath(u"export.iso");
    const auto taken = timed([&list] {
        list.window.daochuMarc();
        settle();
        return true;
    });
    const bool all = marc::lineCount(list.host.chosenFile).value() == rows;
    QFile::remove(list.host.chosenFile);
    return all ? taken : std::nullopt;
}

std::optional<double> previewInWindow(const QString &catalogue, int rows) {
    List list(catalogue);
    putUp(list.window);
    if (!list.load(rows))
        return std::nullopt;
    QDialog *preview = nullptr;
    list.showReport = [&](const auto &report) {
        preview = widgets::newReportPreview(report, &list.window);
        putUp(*preview);
    };
    const auto taken = timed([&] {
        list.window.PrintRpt({});
        return preview != nullptr;
    });
    delete preview;
    return taken;
}

std::optional<double> selectByLoop(const QString &catalogue, int rows) {
    constexpr int columns = 17;
    DriverLoop loop(connectionTo(catalogue));
    std::vector<QByteArray> statements;
    for (int key = 1; key <= rows; ++key)
        statements.push_back(asSqlite(catalogue::exportStatement(QString::number(key))));
    loop.bind(columns);
    return timed([&] {
        return std::ranges::all_of(statements, [&loop](const QByteArray &select) { return loop.fetchOne(select); }) &&
               loop.firstValue() == QByteArray::number(rows);
    });
}

QString listCommand(const QString &catalogue) {
    return u"sqlite3 " + quoted(catalogue) + u' ' +
           quoted(QString::fromUtf8(asSqlite(catalogue::catalogueStatement({}, {})))) + u" >/dev/null";
}

} // namespace bench
