// From the rows of the grid back to one record: field 001 made anew, the other control fields in grid order, data
// fields by ascending tag, lengths and addresses recomputed in GBK bytes. Not the inverse of the reader: 105, 106, 110
// and 115 are dropped, as are empty subfields; a number that is too wide for its place is left out.
#pragma once

#include "marc/fieldRows.h"
#include <QDateTime>

namespace marc {

// `leader` is the text kept beside the grid, a blank in it may stand as "#". `now` goes into field 001.
RawRecord madeMyMarc(const FieldRows &rows, const QString &leader, const QDateTime &now);

} // namespace marc
