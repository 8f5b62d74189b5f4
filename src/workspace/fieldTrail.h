// Where a field of a record is found after edits, deletions, insertions and sorting. Fields have no identity of their
// own, so it is derived from what they hold: a field is followed where all best alignments of the two states agree on
// it, and reported as lost otherwise. One with the same content counts as the same.
#pragma once

#include "marc/fieldRows.h"
#include <optional>
#include <vector>

namespace workspace {

// An element of FieldRows, from 0.
struct Trail {
    qsizetype element = 0;
    bool subfieldLost = false; // the field is there, the subfield in it is not: `element` is the field's own row
};

// Nothing where the field is not found any more.
std::optional<Trail> followField(const marc::FieldRows &before, const marc::FieldRows &after, qsizetype element);

// Through all states of a record: those that the list has held, the oldest first, and the rows as they are edited now.
std::optional<Trail> followField(const std::vector<marc::RawRecord> &held, const marc::FieldRows &now,
                                 qsizetype element);

} // namespace workspace
