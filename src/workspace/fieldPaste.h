// Copies whole fields of a record as text and pastes them into another record. Rows are numbered as on the grid.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"

namespace workspace {

// Returns the text of the fields to which the rows from `first` to `last` belong; see marc::fieldText().
QString copiedFields(const marc::FieldRows &rows, int first, int last);

struct NewRows {
    int place; // the row before which they are inserted
    marc::FieldRows content;
};
// Returns the fields in `text` with the descriptions in `folder`, to be inserted after the field of the row `current`.
platform::Result<NewRows> pastedFields(const marc::FieldRows &rows, int current, const QString &text,
                                       const QString &folder);

} // namespace workspace
