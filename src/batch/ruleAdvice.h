// What a rule demands and what can be done about it, in Chinese.
#pragma once

#include "batch/remark.h"

namespace batch {

// Returns one or two sentences about the kind or, of the schema's validation, the check of the remark.
QStringView adviceOn(const Remark &remark);

} // namespace batch
