// A record as it stands in the field grid at one moment.
#pragma once

#include "marc/fieldRows.h"

namespace workspace {

struct RecordState {
    marc::FieldRows rows;
    QString leader;              // the record is built with it (`publicTouBiao`); the leader's row may differ
    bool edited = false;         // the user is asked about it before another record is shown (`recordChanged`)
    bool rowsCameOrWent = false; // since the record was shown; this alone is not asked about
};

} // namespace workspace
