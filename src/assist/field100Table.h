// The 36 characters of the general processing data, field 100 $a, as boxes with their codes.
#pragma once

#include "assist/codedBoxes.h"
#include <span>

namespace assist {

std::span<const Box> field100Table();

} // namespace assist
