// A step in words, such as "如果有 010 字段，在 200 字段的 $a 里，把“：”换成“:”".
#pragma once

#include "tasks/task.h"

namespace tasks {

// The values need not be valid; a missing one is shown as "…".
QString describe(const Step &step);

} // namespace tasks
