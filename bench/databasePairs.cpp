#include "databaseRuns.h"
#include "pairs.h"

using namespace Qt::StringLiterals;

namespace bench {

void databasePairs(Table &table, const BenchStage &stage) {
    const auto records = readStore(stage.importRecords().path);
    const std::vector<QByteArray> statements = insertsOf(*records, database::Server::Sqlite);
    const ImportTarget target = sqliteTarget(stage);
    const auto importing =
        takeTurns("import", 3,
                  {[&] { return importInWindow(target, records); }, [&] { return importByLoop(target, statements); }});
    table.speed(u"import 20,000 records, in the window | a loop of inserts"_s, importing[0], importing[1], 0.5);

    const QString list = stage.listDatabase(), exported = stage.exportDatabase();
    const auto listing =
        takeTurns("listing", 3, {[&] { return listInWindow(list, listedRows); }, command(listCommand(list))});
    table.speed(u"list 1,000,000 rows, in the window | sqlite3"_s, listing[0], listing[1], 0.6);

    const auto exporting = takeTurns("export", 3,
                                     {[&] { return exportInWindow(stage, exported, exportedRows); },
                                      [&] { return selectByLoop(exported, exportedRows); }});
    table.speed(u"export 100,000 rows, in the window | a loop of selects"_s, exporting[0], exporting[1], 0.8);
}

} // namespace bench
