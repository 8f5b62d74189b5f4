// What the search in other libraries' catalogues needs from the workspace.
#pragma once

#include "marc/fieldRows.h"
#include <QStringList>
#include <functional>

namespace workspace {

struct FetchNeeds {
    QString isbn;                                     // of the current record; may be empty
    QString title;                                    // likewise
    std::function<marc::FieldRows()> rows;            // of the current record, with its edits
    std::function<void(const marc::FieldRows &)> put; // replaces them, as one edit
    std::function<QStringList()> isbns;               // of all records of the list
};

} // namespace workspace
