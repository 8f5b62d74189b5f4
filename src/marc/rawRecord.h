// One record as text.
#pragma once

#include <QString>

namespace marc {

// Decoded from GBK, from the first character of the leader up to and including the record terminator. Passed by value.
using RawRecord = QString;

} // namespace marc
