// The import of one record into the copy-cataloguing table, over a connection of its own.
#pragma once

#include "database/sublib.h"
#include "marc/rawRecord.h"
#include "platform/host.h"

namespace importing {

// Whether the row went in. A damaged directory and a database that cannot be reached are
// told in a box; a statement that fails is not told here. An empty record does nothing.
bool daoruRecord(const marc::RawRecord &marc, const database::SessionState &state, platform::Host &host);

} // namespace importing
