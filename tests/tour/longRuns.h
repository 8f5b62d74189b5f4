// The five long runs of the program, each begun from the main window by keys and clicks, on files that are large enough
// to be met in the middle. What they write has a name that begins with "monkey".
#pragma once

#include "tour/tourDriver.h"
#include <array>

namespace tour {

struct LongRun {
    const char *name;
    const char *window;                           // in which it runs
    void (*begin)(TourDriver &driver, int round); // comes back when it has begun
};

extern const std::array<LongRun, 5> longRuns;

} // namespace tour
