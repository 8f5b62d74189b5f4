// The texts that the window of the report, its pages and its table share.
#pragma once

#include "batch/batchReport.h"
#include <limits>

namespace batch {

// Returns the numbers of the records, counted from 1, as "3, 7, 12–15". Of more than `most` numbers and ranges, the
// rest is left out and the number of records is appended.
inline constexpr qsizetype allNumbers = std::numeric_limits<qsizetype>::max();
QString recordNumbers(const std::vector<int> &rows, qsizetype most = allNumbers);

// Returns the tags with the most remarks, as "200, 101 等"; empty if no field is concerned.
QString tagsOf(const RuleEntry &entry);

// Returns what the number of records with this gravest level is called: 有错误, 只有警告, 只有提示.
QStringView captionOf(schema::Level level);
inline constexpr QStringView cleanCaption = u"没有问题";
// Returns for example "1,234（12.3%）": so many of the proofed records.
QString shareOf(int records, const BatchReport &report);

QString fileNameOf(const BatchReport &report); // without its folder
QString momentOf(const BatchReport &report);   // as "2026-01-31 09:30"
// Returns how many records were proofed, and if these are not all, why and of how many.
QString extentOf(const BatchReport &report);
// Returns by what the records were validated, and which checks were switched off.
QString basisOf(const BatchReport &report);
// Returns the silenced rules with their numbers of remarks; empty if nothing was silenced.
QString silencedWords(const BatchReport &report);

} // namespace batch
