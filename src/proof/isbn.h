// The third proof: the ten-digit ISBN in 010 $a, written in four segments with hyphens, 13 characters in all.
#pragma once

#include "marc/fieldRows.h"
#include "proof/fault.h"

namespace proof {

// What is wrong, or nothing. `text` has no blanks at its ends.
std::optional<Fault> checkISBN(const QString &text);

// checkISBN of the last filled $a of the first field 010: one fault, or none.
std::vector<Fault> proofISBN(const marc::FieldRows &rows);

} // namespace proof
