// The first proof: fields that must be there, and fields that must not be there twice, counted against a fixed table.
#pragma once

#include "marc/fieldRows.h"

namespace proof {

// One line, ended by CR LF, for each fault; empty where there is none. Tags are compared as they stand, so a tag with a
// blank behind it counts as another tag; tags outside the table are free.
QString proofFields(const marc::FieldRows &rows);

} // namespace proof
