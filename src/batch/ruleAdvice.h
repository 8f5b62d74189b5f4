// The requirement of a rule and advice about it, in Chinese.
#pragma once

#include "batch/remark.h"

namespace batch {

// Returns one or two sentences about the kind of the remark or, for a finding of a validation, about its check.
QStringView adviceOn(const Remark &remark);

} // namespace batch
