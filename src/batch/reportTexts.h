// The texts that the window of the report, its pages and its table share.
#pragma once

#include "batch/batchReport.h"
#include <limits>

namespace batch {

// Returns the numbers of the records, counted from 1, such as "3, 7, 12–15". If there are more than `most` numbers and
// ranges, the rest is left out and the number of records is appended.
inline constexpr qsizetype allNumbers = std::numeric_limits<qsizetype>::max();
QString recordNumbers(const std::vector<int> &rows, qsizetype most = allNumbers);

// Returns the tags with the most remarks, such as "200, 101 等"; empty if no field is concerned.
QString tagsOf(const RuleEntry &entry);

// Returns the caption of the number of records with this gravest level: 有错误, 只有警告, 只有提示.
QStringView captionOf(schema::Level level);
inline constexpr QStringView cleanCaption = u"没有问题";
// Returns the number with its share of the checked records, for example "1,234（12.3%）".
QString shareOf(int records, const BatchReport &report);

QString fileNameOf(const BatchReport &report); // without its folder
QString momentOf(const BatchReport &report);   // such as "2026-01-31 09:30"
// Returns the number of checked records and, if these are not all, the reason and the number of all.
QString extentOf(const BatchReport &report);
// Returns the schema of the validation, and the checks that were switched off.
QString basisOf(const BatchReport &report);
// Returns the silenced rules with their numbers of remarks; empty if nothing was silenced.
QString silencedWords(const BatchReport &report);

} // namespace batch
