// The 24 characters of a record's leader as boxes: what each position means, its codes and their explanations. The
// lengths and the base address are left to whoever writes the record.
#pragma once

#include "assist/codedBoxes.h"
#include <span>

namespace assist {

std::span<const Box> leaderTable();

} // namespace assist
