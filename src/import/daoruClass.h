// Imports one record into the copy-cataloguing table, over a connection of its own.
#pragma once

#include "database/sublib.h"
#include "marc/rawRecord.h"
#include "platform/host.h"
#include <optional>

namespace importing {

struct Daoru {
    bool wentIn = false;
    QString fault;             // the reason for a failure, as far as the system or the record provides one
    std::optional<qint64> key; // of the row, if the server reports it
};

// Imports the record. A damaged directory and an unreachable database are reported in a box; a failed statement is not
// reported here. An empty record has no effect.
// If the connection is lost before the server has answered, the row is looked up in the table after the greatest key of
// `earlier`, the keys of the rows imported before. If it is the only row after that key, it was imported. Otherwise the
// record is in doubt: it may still be inserted, or a row found may be another user's. The fault states this, and
// nothing is sent again. If only the key was lost, it is looked up in the same way.
Daoru daoruRecord(const marc::RawRecord &marc, const database::SessionState &state, platform::RunBoxes &boxes,
                  const QList<qint64> &earlier = {});

} // namespace importing
