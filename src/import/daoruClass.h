// The import of one record into the copy-cataloguing table, over a connection of its own.
#pragma once

#include "database/sublib.h"
#include "marc/rawRecord.h"
#include "platform/host.h"
#include <optional>

namespace importing {

struct Daoru {
    bool wentIn = false;
    QString fault;             // why not, as far as the machine or the record says
    std::optional<qint64> key; // of the row, where the server tells
};

// A damaged directory and a database that cannot be reached are
// told in a box; a statement that fails is not told here. An empty record does nothing.
// Where the connection is lost before the server has answered, the store is asked for the row, among those after the
// greatest of `earlier`, the keys of the rows that went in before. A row that is the only one there went in. Otherwise
// the record is in doubt: it may still come in, or a row found may be another person's. The fault says so, and nothing
// is sent again. The key alone, where it was lost, is asked for in the same way.
Daoru daoruRecord(const marc::RawRecord &marc, const database::SessionState &state, platform::RunBoxes &boxes,
                  const QList<qint64> &earlier = {});

} // namespace importing
