// The import of one record into the copy-cataloguing table, over a connection of its own.
#pragma once

#include "marc/recordReader.h"
#include "platform/database/sublib.h"
#include "platform/host.h"

namespace importing {

// "yes" when the row went in, otherwise the empty text. A damaged directory and a database that cannot be reached are
// told in a box; a statement that fails is not told here. An empty record does nothing.
QString daoruRecord(const marc::RawRecord &marc, const platform::SessionState &state, platform::Host &host);

} // namespace importing
