// A step in words, such as "如果有 010 字段，在 200 字段的 $a 里，把“：”换成“:”".
#pragma once

#include "tasks/task.h"
#include <QStringList>

namespace tasks {

// The values need not be valid; a missing one is shown as "…".
QString describe(const Step &step);

// All steps of a task, each with its number, counted from 1, and whether it is off.
QStringList stepsInWords(const Task &task);

} // namespace tasks
