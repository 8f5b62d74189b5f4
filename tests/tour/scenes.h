// The scenes of the tour, in the order in which they run, and the monkey, which runs instead of them.
#pragma once

#include "tour/tourDriver.h"

namespace tour {

// Runs the program from start to end while the script drives it from another thread. Uses the real host, except that
// the end of the process returns to the tour and that links are not opened.
void runProgram(TourDriver &driver, const std::function<void(TourDriver &)> &script);

void firstRun(TourDriver &driver); // without settings: data sources, test, save, exit
void closeNotice(TourDriver &driver);
void notices(TourDriver &driver); // a second start, the help windows
void readAndImport(TourDriver &driver);
void edit(TourDriver &driver);
void proofAndCard(TourDriver &driver);
void catalogue(TourDriver &driver);
void store(TourDriver &driver);
void fileTools(TourDriver &driver);
void deskGifts(TourDriver &driver);    // features of the workspace other than editing
void aDay(TourDriver &driver);         // by keys alone
void changeBatch(TourDriver &driver);  // by a ready task
void fetchRecords(TourDriver &driver); // from other libraries' catalogues
void tidy(TourDriver &driver);         // any record file converted to a readable one
void handbook(TourDriver &driver);     // F1 in each window
void leave(TourDriver &driver);        // the exit question, both answers

// Presses F1 in the window in front, takes a picture of the handbook and closes it.
void askHandbook(TourDriver &driver, const QString &page, const QString &picture);

// Random use of the program: while each of the five long runs (longRuns.h) is active, the monkey presses keys and
// buttons, closes and resizes windows and starts the program a second time. Questions get random answers, except the
// one that ends the program, which is always answered with No. What the program reports must match its files and its
// database (monkeyWatch.h). The same seed gives the same sequence of random numbers; their effect depends on the speed
// of the machine.
void monkey(TourDriver &driver, unsigned seed, int seconds);

} // namespace tour
