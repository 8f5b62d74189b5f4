// The separator characters of the ISO 2709 exchange layout and the widths of its fixed areas.
#pragma once

#include <QChar>

namespace marc {

inline constexpr char16_t recordTerminator = 0x1D;  // last character of a record
inline constexpr char16_t fieldTerminator = 0x1E;   // ends the directory and every field
inline constexpr char16_t subfieldDelimiter = 0x1F; // starts a subfield; the next character is its code

inline constexpr int leaderLength = 24; // characters
inline constexpr int directoryEntryLength = 12;
inline constexpr int baseAddressAt = 12; // offset in the leader, counted from 0
inline constexpr int baseAddressLength = 5;

} // namespace marc
