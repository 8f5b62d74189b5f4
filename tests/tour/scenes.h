// The scenes of the tour, in the order in which they are played.
#pragma once

#include "tour/tourDriver.h"

namespace tour {

void firstRun(TourDriver &driver); // no setting yet: data sources, test, save, the end
void closeNotice(TourDriver &driver);
void notices(TourDriver &driver); // a second start, the help windows
void readAndImport(TourDriver &driver);
void edit(TourDriver &driver);
void proofAndCard(TourDriver &driver);
void catalogue(TourDriver &driver);
void store(TourDriver &driver);
void fileTools(TourDriver &driver);
void leave(TourDriver &driver); // the exit question, both answers

} // namespace tour
