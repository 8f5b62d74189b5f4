// The 24 characters of the record leader as boxes: the meaning of each position, its codes and their explanations. The
// lengths and the base address are filled in when the record is written.
#pragma once

#include "assist/codedBoxes.h"
#include <span>

namespace assist {

std::span<const Box> leaderTable();

} // namespace assist
