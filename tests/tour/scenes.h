// The scenes of the tour, in the order in which they are played, and what is played instead of them.
#pragma once

#include "tour/tourDriver.h"

namespace tour {

// Runs the program from its start to its end, with the script driving it from a thread of its own: on the real machine,
// but the end of the process comes back to the tour, and there is no desktop to hand a link to.
void runProgram(TourDriver &driver, const std::function<void(TourDriver &)> &script);

void firstRun(TourDriver &driver); // no setting yet: data sources, test, save, the end
void closeNotice(TourDriver &driver);
void notices(TourDriver &driver); // a second start, the help windows
void readAndImport(TourDriver &driver);
void edit(TourDriver &driver);
void proofAndCard(TourDriver &driver);
void catalogue(TourDriver &driver);
void store(TourDriver &driver);
void fileTools(TourDriver &driver);
void deskGifts(TourDriver &driver); // what the workspace gives beside the editing
void aDay(TourDriver &driver);      // by keys alone
void tidy(TourDriver &driver);      // any record file made readable
void handbook(TourDriver &driver);  // F1 in each window
void leave(TourDriver &driver);     // the exit question, both answers

// F1 in the window in front, and the handbook closed again; takes a picture between.
void askHandbook(TourDriver &driver, const QString &page, const QString &picture);

// A monkey at the keyboard: while each of the five loops of the program runs (longRuns.h), it presses keys and buttons,
// closes and resizes windows and starts the program a second time, all by the dice. Questions are answered as they
// fall; the one that ends the program always with No. What the program then says must be what its files and its store
// hold (monkeyWatch.h). The dice fall alike for the same seed; what they meet depends on how fast the machine is.
void monkey(TourDriver &driver, unsigned seed, int seconds);

} // namespace tour
