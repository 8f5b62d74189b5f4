// The interface of the workspace to the search in other libraries' catalogues.
#pragma once

#include "marc/fieldRows.h"
#include <QStringList>
#include <functional>

namespace workspace {

struct FetchNeeds {
    QString isbn;                                     // of the current record; may be empty
    QString title;                                    // likewise
    std::function<marc::FieldRows()> rows;            // of the current record, with its edits
    std::function<void(const marc::FieldRows &)> put; // replaces the rows, as one edit
    std::function<QStringList()> isbns;               // of all records of the list
};

} // namespace workspace
