// What is left when the program is killed in the middle of its work: a split and an export, each in a process of its
// own that kills itself as soon as its window tells of enough records.
#pragma once

#include "tour/tourDriver.h"

namespace tour {

// Plays the program up to the kill; says on the standard output what the screen has told. Does not come back.
void playUntilKilled(TourDriver &driver, const QString &run);

// Starts such a process for each of the two. The files must hold what the screens have told, all of it whole, and each
// next start must find nothing in its way.
void kills(TourDriver &driver);

} // namespace tour
