// What the windows say about a search and about what was taken from it.
#pragma once

#include "targets/query.h"
#include "targets/search.h"
#include "targets/takenRecords.h"

namespace targets {

// Returns why a search cannot begin and what to do about it; empty if it can.
QString whyNoSearch(const Query &query, const TargetList &chosen);

// Returns what the search window says when it is opened; `complaint` is that of the list of targets.
QString openingWords(const QString &complaint);

// Returns the name of a target as lists show it, with 未验证 until it was tested.
QString captionOf(const Target &target);

// Returns a line about a search: the number of records, how many targets are still asked, and how many failed.
QString searchWords(const Search &search);
// Returns what to try after a search that is over: about its faults, or if it found nothing. Empty if there is nothing
// to say.
QString adviceAfter(const Search &search);

// Returns what was written and what was lost in it, for a message box: at most `mostLines` of each list.
QString takenWords(const TakenFile &taken);
inline constexpr int mostLines = 8;

} // namespace targets
