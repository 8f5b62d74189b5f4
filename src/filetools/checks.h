// The checks before a split or a merge, in their order. The first problem ends the click; some problems are not
// reported.
#pragma once

#include "platform/paths.h"
#include <QString>
#include <QStringList>
#include <optional>

namespace filetools {

enum class Field { None, Source, Target, Limit };

struct Refusal {
    QString text; // message to show; empty: none
    Field focus = Field::None;
};

// Returns std::nullopt if the split may continue with the question about existing files. `source` and `target` must be
// trimmed.
std::optional<Refusal> refuseSplit(const QString &source, bool sourceExists, const QString &target,
                                   const QString &limit, QChar separator = platform::pathSeparator);

// Returns std::nullopt if the merge may continue with the question about an existing target. `target` must be trimmed.
// A source counts as the target only if both are spelled identically.
std::optional<Refusal> refuseMerge(const QStringList &sources, const QString &target);

QString overwriteQuestion(const QString &mask);
QString replaceQuestion(const QString &target);

// Returns the number of records per file, rounded to the nearest integer (a half to the even one), or std::nullopt if
// the text is not a number or is rounded to less than 1.
std::optional<qint64> recordsPerFile(QStringView limit);

} // namespace filetools
