// A monkey at the keyboard: while each of the five loops of the program runs (read, import, export, split, merge), it
// presses keys and buttons, closes and resizes windows and starts the program a second time, all by the dice. Questions
// are answered as they fall; the one that ends the program always with No. What the program then says must be what its
// files and its store hold (monkeyWatch.h).
#pragma once

#include "tour/tourDriver.h"

namespace tour {

// Plays the program from its start to its end. The dice fall alike for the same seed; what they meet depends on how
// fast the machine is.
void monkey(TourDriver &driver, unsigned seed, int seconds);

} // namespace tour
