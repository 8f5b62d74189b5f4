// Colours with a fixed meaning, the same in the light and the dark scheme. Those of grids are 24-bit numbers with red
// in the low byte. The text on them is black or white, whichever has more contrast.
#pragma once

#include <QtGlobal>

namespace widgets {

constexpr quint32 descriptionGrey = 12632256; // what the user does not type
constexpr quint32 currentRed = 255;           // the current record
constexpr quint32 visitedYellow = 12648447;   // a record that was current before
constexpr quint32 codedCyan = 0xFFFFC0;       // a box of an assistant that takes a code
constexpr quint32 foundYellow = 0x80F0FF;     // a word that was found
constexpr quint32 foundOrange = 0x3296FF;     // the one that is shown

} // namespace widgets
