// The plain text of a field, made from its subfields $a.
#pragma once

#include "card/subfieldWalk.h"

namespace card {

// Returns the values of $a, joined by " 、" and not trimmed, or an empty text for an empty field. Otherwise fails like
// walk().
Piece fieldTextA(QString field);

} // namespace card
