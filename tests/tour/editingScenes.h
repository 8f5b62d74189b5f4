// The steps of the editing scene: each begins and ends with the keyboard in the grid of the first record.
#pragma once

#include "tour/tourDriver.h"

namespace tour {

void changeFields(TourDriver &driver); // popup, descriptions and identifiers, lists, deletions
void assistants(TourDriver &driver);

} // namespace tour
