// The five long runs of the program, each begun from the main window by keys and clicks, on files that are large enough
// to be met in the middle, and what is left when the program is killed there: a split and an export, each in a process
// of its own that kills itself as soon as its window tells of enough records.
#pragma once

#include "tour/tourDriver.h"
#include <array>

namespace tour {

struct LongRun {
    const char *name;
    const char *window;                           // in which it runs
    void (*begin)(TourDriver &driver, int round); // comes back when it has begun
    const char *label = nullptr;                  // that tells how far it is, of a run that is killed
    const char *files = nullptr;                  // which it writes; the names begin with "monkey"
};

extern const std::array<LongRun, 5> longRuns;

// Plays the program up to the kill; says on the standard output what the screen has told. Does not come back.
void playUntilKilled(TourDriver &driver, const QString &run);

// Starts such a process for each of the two. The files must hold what the screens have told, all of it whole, and each
// next start must find nothing in its way.
void kills(TourDriver &driver);

} // namespace tour
