// Reads one subfield of a record, for the list of titles.
#pragma once

#include "marc/rawRecord.h"
#include <functional>
#include <optional>

namespace marc {

// Called with the record when its directory is damaged; callers with a window ask whether to show it.
using DamagedDirectory = std::function<void(const RawRecord &)>;

// Returns the value of the first subfield that matches `wanted` (3 characters of tag and the code, e.g. "200a"), in
// directory order; an empty string if there is none or if the directory is damaged (then `damaged` is called). Returns
// std::nullopt if the lookup failed: no field terminator, an invalid number in a part that had to be read, an empty
// field, or a subfield of negative length before the match.
std::optional<QString> readZd(const RawRecord &record, QStringView wanted, const DamagedDirectory &damaged);

// The same for callers that have the bytes that the record was decoded from, or is encoded to.
std::optional<QString> readZd(const RawRecord &record, QByteArrayView gbk, QStringView wanted,
                              const DamagedDirectory &damaged);

} // namespace marc
