#include "tour/scenes.h"

namespace tour {

void fileTools(TourDriver &) {}

} // namespace tour
