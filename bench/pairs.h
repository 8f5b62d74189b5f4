// The comparisons by subject. Each one measures and prints its rows of the table.
#pragma once

#include "benchStage.h"
#include "sideBySide.h"

namespace bench {

void recordPairs(Table &table, const BenchStage &stage); // counting, reading, memory
void stepping(Table &table, const BenchStage &stage);
void databasePairs(Table &table, const BenchStage &stage); // import, listing, export
void batchPairs(Table &table, const BenchStage &stage);    // proof and look-up of a whole list
void filePairs(Table &table, const BenchStage &stage);     // split, merge, tidy
void taskPairs(Table &table, const BenchStage &stage);     // tasks on files and lists

} // namespace bench
