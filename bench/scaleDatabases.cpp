#include "databaseRuns.h"
#include "memoryRuns.h"
#include "scaleReport.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

void import(ScaleReport &report, const BenchStage &stage) {
    const auto records = readStore(stage.recordsOf(report.records()).path);
    const std::vector<QByteArray> statements = insertsOf(*records, database::Server::Sqlite);
    const ImportTarget target = sqliteTarget(stage);
    const auto sides =
        takeTurns("import", roundsOf(report.records(), 3, 1),
                  {[&] { return importInWindow(target, records); }, [&] { return importByLoop(target, statements); }});
    report.compared(u"import"_s, sides, u"a loop of inserts on one connection"_s, 0.5);
}

} // namespace

void databaseScale(ScaleReport &report, const BenchStage &stage) {
    import(report, stage);
    const int rows = report.records();
    const QString catalogue = stage.catalogueOf(rows);
    const auto listing = takeTurns("list", roundsOf(rows),
                                   {[&] { return listInWindow(catalogue, rows); }, command(listCommand(catalogue)),
                                    [&] { return listByLoop(catalogue, rows); }});
    report.compared(u"list"_s, listing, u"sqlite3"_s, 0.6);
    report.table.speed(u"rows of the list | a loop that drops the driver's rows"_s, listing[0], listing[2], 0.75);
    constexpr double mostMemory = 200e6;
    if (const auto memory = memoryOfListing(catalogue, rows))
        report.table.bound(u"memory of the program with the list"_s, *memory, mostMemory, Unit::Bytes);

    const auto exporting = takeTurns(
        "export", roundsOf(rows, 3, 2),
        {[&] { return exportInWindow(stage, catalogue, rows); }, [&] { return selectByLoop(catalogue, rows); }});
    report.compared(u"export"_s, exporting, u"a loop of the same selects"_s, 0.8);
    const auto previewing =
        takeTurns("print preview", roundsOf(rows, 2, 1), {[&] { return previewInWindow(catalogue, rows); }});
    report.alone(u"print preview"_s, previewing[0], rows);
}

void serverScale(ScaleReport &report, const BenchStage &stage) {
    const auto records = readStore(stage.importRecords().path);
    using enum database::Server;
    for (const auto &[server, name] : {std::pair(PostgreSql, u"PostgreSQL"_s), {MariaDb, u"MariaDB"_s}}) {
        const auto target = serverTarget(qEnvironmentVariable("BENCH_SERVERS"), server);
        if (!target)
            qFatal("BENCH_SERVERS names no file with connection texts");
        const std::vector<QByteArray> statements = insertsOf(*records, server);
        const auto sides = takeTurns(
            "import", 3,
            {[&] { return importInWindow(*target, records); }, [&] { return importByLoop(*target, statements); }});
        report.table.speed(u"import of 20,000 into " + name + u" | a loop of inserts on one connection", sides[0],
                           sides[1], 0.5);
    }
}

} // namespace bench
