// Checks the values of a step.
#pragma once

#include "tasks/task.h"
#include <optional>

namespace tasks {

struct StepFault {
    bool inTest = false; // the parameter is one of the test, otherwise of the action
    Parameter parameter = Parameter::Tag;
    QString reason;
};

// Returns the first fault of a step; std::nullopt if it can be run.
std::optional<StepFault> checkStep(const Step &step);

inline constexpr qsizetype longestValue = 4000; // characters
inline constexpr size_t mostSteps = 500;

} // namespace tasks
