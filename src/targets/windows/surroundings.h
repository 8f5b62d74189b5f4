// The functions of other folders that the windows of this folder use. The caller that makes the windows supplies them;
// an empty function: not available.
#pragma once

#include "marc/fieldRows.h"
#include "targets/foundRecords.h"

class QWidget;

namespace targets {

// Where the library has a record that was searched for.
struct Holding {
    int record = -1; // index in the searched list; -1: about the whole search, such as a failure
    QString words;
};
// Does a small part of the search. Returns what it found, or std::nullopt after the last part.
using HoldingSearch = std::function<std::optional<std::vector<Holding>>()>;

struct Surroundings {
    FoundRecords::Proof proof;
    std::function<QString(const marc::FieldedRecord &)> card; // with CR LF
    std::function<HoldingSearch(const std::vector<marc::FieldedRecord> &)> searchHoldings;
    // Opens a record file in the pre-read window and returns when it is closed.
    std::function<void(const QString &file, QWidget *owner)> open;
};

// The workspace from which a window was opened.
struct CurrentRecord {
    std::function<marc::FieldRows()> rows; // of the record that is being edited
    // Replaces the rows, which are without descriptions, as one edit.
    std::function<void(const marc::FieldRows &)> put;
    std::function<QStringList()> isbns; // of the records of the list
};

} // namespace targets
