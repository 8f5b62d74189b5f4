// The third proof: the ten-digit ISBN in 010 $a, written in four segments with hyphens, 13 characters in all.
#pragma once

#include "marc/fieldRows.h"

namespace proof {

inline constexpr QStringView isbnValid = u"yes";

// isbnValid, or the report. `text` has no blanks at its ends.
QString checkISBN(const QString &text);

// checkISBN of the last filled $a of the first field 010; empty where there is none.
QString proofISBN(const marc::FieldRows &rows);

} // namespace proof
