#include "databaseRuns.h"
#include "app/startUp.h"
#include "catalogue/listStatements.h"
#include "database/script.h"
#include "driverLoop.h"
#include "import/recordRow.h"
#include "import/windows/frmDaoRuJindu.h"
#include "marc/recordCutter.h"
#include "sideBySide.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include <QCoreApplication>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

QByteArray asSpelledBy(database::Server server, const QString &statement) {
    return database::rewrite(statement, server, app::tableNames()).toUtf8();
}

QByteArray asSqlite(const QString &statement) {
    return asSpelledBy(database::Server::Sqlite, statement);
}

int countOf(const QString &connectionText) {
    DriverLoop loop(connectionText);
    loop.bind(1);
    return loop.isOpen() && loop.fetchOne("select count(*) from taoluTable") ? loop.firstValue().toInt() : -1;
}

QString textOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Drops all tables and creates them again from the named schema script.
void makeTables(const QString &connectionText, const QString &schema) {
    database::LinkPool links;
    auto connection = database::Connection::open(links, connectionText);
    if (!connection)
        qFatal("%s", qUtf8Printable(connection.failure().description));
    for (const QString &table : app::tableNames())
        (void)connection.value().execute(u"drop table if exists " + table);
    const QString script = textOf(QStringLiteral(BENCH_SCHEMA_FOLDER) + u'/' + schema + u".sql");
    if (const platform::Status made = database::runScript(connection.value(), script); !made)
        qFatal("%s", qUtf8Printable(made.failure().description));
}

} // namespace

ImportTarget sqliteTarget(const BenchStage &stage) {
    return {database::Server::Sqlite, [&stage] {
                const QString file = stage.file(u"import.db");
                for (const QStringView part : {u"", u"-wal", u"-shm"})
                    QFile::remove(file + part);
                QFile::copy(stage.emptyDatabase(), file);
                return connectionTo(file);
            }};
}

std::optional<ImportTarget> serverTarget(const QString &serversFile, database::Server server) {
    const QString name = server == database::Server::PostgreSql ? u"postgresql"_s : u"mariadb"_s;
    for (const QString &line : textOf(serversFile).split(u'\n'))
        if (line.startsWith(name + u'='))
            return ImportTarget{server, [name, text = line.sliced(name.size() + 1)] {
                                    makeTables(text, name);
                                    return text;
                                }};
    return std::nullopt;
}

std::vector<QByteArray> insertsOf(const marc::PreReadStore &store, database::Server server) {
    std::vector<QByteArray> statements;
    for (int row = 0; row < store.rowCount(); ++row)
        if (const auto values = importing::recordRow(store.record(row)))
            statements.push_back(asSpelledBy(server, importing::insertStatement(*values)));
    return statements;
}

std::optional<double> importInWindow(const ImportTarget &target, std::shared_ptr<const marc::PreReadStore> records) {
    BenchHost host;
    database::LinkPool links(app::tableNames());
    const database::SessionState state{links, target.emptied()};
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
    return countOf(state.connectionString) == records->rowCount() ? taken : std::nullopt;
}

std::optional<double> importByLoop(const ImportTarget &target, const std::vector<QByteArray> &statements) {
    const QString connectionText = target.emptied();
    std::optional<double> taken;
    {
        DriverLoop loop(connectionText);
        taken = timed([&] {
            return std::ranges::all_of(statements, [&loop](const QByteArray &insert) { return loop.execute(insert); });
        });
    }
    return countOf(connectionText) == int(statements.size()) ? taken : std::nullopt;
}

List::List(const QString &database)
    : links(app::tableNames())
    , state{links, connectionTo(database)}
    , window(state, host, order,
             {.showDetail = [](qint32) {},
              .showOrderby = [] {},
              .showReport = [this](const auto &report) { showReport(report); }}) {}

bool List::load(int rows) {
    catalogue::Condition condition;
    QString sorting;
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
        const auto *progress = preview ? preview->findChild<QWidget *>(u"progress"_s) : nullptr;
        while (progress && !progress->isHidden())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        settle();
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

std::optional<double> listByLoop(const QString &catalogue, int rows) {
    constexpr int columns = 8;
    DriverLoop loop(connectionTo(catalogue) + u"StepAPI=1;"); // one row at a time, as in the program
    loop.bind(columns);
    return timed([&] { return loop.fetchAll(asSqlite(catalogue::catalogueStatement({}, {}))) == rows; });
}

QString listCommand(const QString &catalogue) {
    return u"sqlite3 " + quoted(catalogue) + u' ' +
           quoted(QString::fromUtf8(asSqlite(catalogue::catalogueStatement({}, {})))) + u" >/dev/null";
}

} // namespace bench
