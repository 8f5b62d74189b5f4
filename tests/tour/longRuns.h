// The five long runs of the program, each started from the main window by keys and clicks, on files large enough that a
// run can be interrupted in its middle. Also what remains when the program is killed during a split or an export: each
// of the two runs in a separate process that kills itself once its window shows enough records.
#pragma once

#include "tour/tourDriver.h"
#include <array>

namespace tour {

struct LongRun {
    const char *name;
    const char *window;                           // the window of the run
    void (*begin)(TourDriver &driver, int round); // returns once the run has started
    const char *label = nullptr;                  // shows the progress, for a run that is killed
    const char *files = nullptr;                  // written by the run; the names begin with "monkey"
};

extern const std::array<LongRun, 5> longRuns;

// Runs the program until the kill; prints the number that the screen showed. Does not return.
void playUntilKilled(TourDriver &driver, const QString &run);

// Starts such a process for the split and for the export. The files must contain at least as many records as the screen
// showed, all of them complete, and the next start must not be hindered.
void kills(TourDriver &driver);

} // namespace tour
