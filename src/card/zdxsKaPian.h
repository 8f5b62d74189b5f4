// The plain text of a field: its subfields $a.
#pragma once

#include "card/subfieldWalk.h"

namespace card {

// The values of $a, joined by " 、", untrimmed; empty for an empty field. Fails as walk() does, an empty field
// excepted.
Piece fieldTextA(QString field);

} // namespace card
