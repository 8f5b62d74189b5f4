// One record as text.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace marc {

// Decoded from GBK, from the first character of the leader up to and including the record terminator. Passed by value.
using RawRecord = QString;

// Makes the next (1) or previous (-1) record of a list current and returns it, or std::nullopt if there is none or it
// cannot be read, which is reported.
using RecordStep = std::function<std::optional<RawRecord>(int by)>;

} // namespace marc
