// The state of a record in the field grid.
#pragma once

#include "marc/fieldRows.h"

namespace workspace {

struct RecordState {
    marc::FieldRows rows;
    QString leader;              // the leader of the built record (`publicTouBiao`); the row of the leader may differ
    bool edited = false;         // the user is asked before another record is shown (`recordChanged`)
    bool rowsCameOrWent = false; // since the record was shown; the user is not asked about this alone
};

} // namespace workspace
