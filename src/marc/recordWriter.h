// Builds a record from the rows of the grid: field 001 is new, the other control fields follow in grid order, then the
// data fields by ascending tag; lengths and addresses are computed in GBK bytes. Not the inverse of the reader: 105,
// 106, 110 and 115 are dropped, as are empty subfields; a number too wide for its place is omitted.
#pragma once

#include "marc/fieldRows.h"
#include <QDateTime>

namespace marc {

// `leader` is the text kept next to the grid, in which a "#" stands for a blank. `now` is written to field 001.
RawRecord madeMyMarc(const FieldRows &rows, const QString &leader, const QDateTime &now);

} // namespace marc
