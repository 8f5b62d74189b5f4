// The value of one subfield of a record, for the list of titles.
#pragma once

#include "marc/rawRecord.h"
#include <functional>
#include <optional>

namespace marc {

// Asked, and shown the record where wanted, when a directory is damaged. Handed in by whoever has a screen.
using DamagedDirectory = std::function<void(const RawRecord &)>;

// The value of the first subfield that matches `wanted` (3 characters of tag and the code, e.g. "200a"), in directory
// order; empty where there is none or where the directory is damaged (then `damaged` is called). Nothing where the call
// failed: no field terminator, numbers that are none in what had to be read, a field cut where there is nothing, a
// subfield of negative length ahead of the match.
std::optional<QString> readZd(const RawRecord &record, QStringView wanted, const DamagedDirectory &damaged);

// The same for callers that hold the bytes that the record was decoded from, or those that it is encoded to.
std::optional<QString> readZd(const RawRecord &record, QByteArrayView gbk, QStringView wanted,
                              const DamagedDirectory &damaged);

} // namespace marc
