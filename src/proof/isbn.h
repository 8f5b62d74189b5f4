// The third proof: the ten-digit ISBN in 010 $a, written as four segments with hyphens, 13 characters in total.
#pragma once

#include "marc/fieldRows.h"
#include "proof/fault.h"

namespace proof {

// Returns the fault of the ISBN, or std::nullopt. `text` must have no blanks at its ends.
std::optional<Fault> checkISBN(const QString &text);

// Returns the result of checkISBN() for the last non-empty $a of the first field 010: one fault, or none.
std::vector<Fault> proofISBN(const marc::FieldRows &rows);

} // namespace proof
