// Finds a field of a record after edits, deletions, insertions and sorting. Fields have no identity of their own, so it
// is derived from their content: a field is found if all best alignments of the two states agree on it, and reported as
// lost otherwise. Fields with the same content count as the same field.
#pragma once

#include "marc/fieldRows.h"
#include <optional>
#include <vector>

namespace workspace {

// An element of FieldRows, counted from 0.
struct Trail {
    qsizetype element = 0;
    bool subfieldLost = false; // only the field was found, not the subfield: `element` is the row of the field
};

// Returns std::nullopt if the field is not found.
std::optional<Trail> followField(const marc::FieldRows &before, const marc::FieldRows &after, qsizetype element);

// Follows the element through all states of a record: `held` are the states that the list has held, the oldest first,
// and `now` are the rows being edited.
std::optional<Trail> followField(const std::vector<marc::RawRecord> &held, const marc::FieldRows &now,
                                 qsizetype element);

} // namespace workspace
