// Draws records of a checked batch by lot, for inspection by a person.
#pragma once

#include "batch/remarkList.h"
#include <vector>

namespace batch {

inline constexpr int recordsDrawn = 10;

// Returns the rows of `wanted` records among the first `rows` rows of the list, in ascending order, or of all records
// if there are no more. The same seed draws the same rows of the same list, on every machine. Rows without a record are
// not drawn.
std::vector<int> drawRows(const marc::PreReadStore &records, int rows, quint32 seed, int wanted = recordsDrawn);

struct DrawnRecord {
    int record = 0; // row in the list, counted from 0
    QString title;
    QStringList remarks; // one line each; without silenced ones
};

struct RecordDraw {
    quint32 seed = 0;
    std::vector<DrawnRecord> records;
};

// Draws among the first `rows` rows of `records` and collects the remarks about the drawn records.
RecordDraw drawRecords(const marc::PreReadStore &records, const RemarkList &remarks, int rows, quint32 seed);

} // namespace batch
