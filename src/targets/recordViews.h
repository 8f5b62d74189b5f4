// A fetched record as text, shown before it is taken.
#pragma once

#include "marc/fieldedRecord.h"
#include "marc/rawRecord.h"
#include "platform/result.h"

namespace targets {

// Returns the text of a field for display: "200 1 $a红楼梦$f曹雪芹".
QString shownField(const marc::Field &field);

// Returns the record as it is written to a file of taken records; characters that GBK lacks become "?". Fails with the
// reason if it does not fit the format.
platform::Result<marc::RawRecord> asRawRecord(marc::FieldedRecord record);

// Returns the record in exchange format, or why it does not fit.
QString standardView(const marc::FieldedRecord &record);

// Returns one line for each field, the leader first, with CR LF between them.
QString fieldsView(const marc::FieldedRecord &record);

} // namespace targets
