// The texts of the windows about a search and about the records taken from it.
#pragma once

#include "targets/query.h"
#include "targets/search.h"
#include "targets/takenRecords.h"

namespace targets {

// Returns the reason why a search cannot begin, with advice; empty if it can.
QString whyNoSearch(const Query &query, const TargetList &chosen);

// Returns the text of the search window when it is opened; `complaint` is TargetShelf::complaint().
QString openingWords(const QString &complaint);

// Returns the name of a target as lists show it, with 未验证 until it was tested.
QString captionOf(const Target &target);

// Returns a line about a search: the number of records, and how many targets are still queried or have failed.
QString searchWords(const Search &search);
// Returns advice after a search that has ended: about its faults, or if it found nothing; else an empty text.
QString adviceAfter(const Search &search);

// Returns the result of writing a file, with its losses, for a message box: at most `mostLines` of each list.
QString takenWords(const TakenFile &taken);
inline constexpr int mostLines = 8;

} // namespace targets
