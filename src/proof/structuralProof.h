// The first proof: required fields and fields that must not be repeated, counted by a fixed table.
#pragma once

#include "marc/fieldRows.h"
#include "proof/fault.h"

namespace proof {

// Tags are compared exactly, so that a tag followed by a blank is another tag; tags outside the table are not checked.
// The fault of a repeated field refers to its second occurrence.
std::vector<Fault> proofFields(const marc::FieldRows &rows);

} // namespace proof
