// The first proof: fields that must be there, and fields that must not be there twice, counted against a fixed table.
#pragma once

#include "marc/fieldRows.h"
#include "proof/fault.h"

namespace proof {

// Tags are compared as they stand, so a tag with a blank after it counts as another tag; tags outside the table are
// free. A fault of a repeated field stands at its second occurrence.
std::vector<Fault> proofFields(const marc::FieldRows &rows);

} // namespace proof
