// The forms in which records are written to files, and what each can hold.
#pragma once

#include <QString>

namespace marc {

enum class TargetForm { GbkIso, Utf8Iso, MarcXml };

// Returns whether the form can hold the character. U+FFFD is treated like any other character, although it replaces
// damaged bytes.
bool canHold(TargetForm form, char32_t character);

// Returns the leader for the target: two indicators, subfield identifiers of two characters, and directory entries of
// 3, 4 and 5 digits. In GBK the leader does not state Unicode.
QString leaderFor(TargetForm form, QString leader);

} // namespace marc
