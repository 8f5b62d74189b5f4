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
Daoru daoruRecord(const marc::RawRecord &marc, const database::SessionState &state, platform::Host &host);

} // namespace importing
