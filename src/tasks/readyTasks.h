// The tasks supplied with the program. They are models: an office changes a copy.
#pragma once

#include "tasks/task.h"

namespace tasks {

// In the order in which a list shows them.
std::vector<Task> readyTasks();

} // namespace tasks
