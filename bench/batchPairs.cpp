#include "batchRuns.h"
#include "pairs.h"

using namespace Qt::StringLiterals;

namespace bench {

void batchPairs(Table &table, const BenchStage &stage) {
    const auto records = readStore(stage.importRecords().path);
    const auto proving = takeTurns("batch", 3,
                                   {[&] { return proofAllInWindow(stage.listDatabase(), records); },
                                    command(identitiesCommand(stage.listDatabase()))});
    table.speed(u"prove 20,000 records and look them up in 1,000,000, in the window | sqlite3 lists these"_s,
                proving[0], proving[1], 0);
}

} // namespace bench
