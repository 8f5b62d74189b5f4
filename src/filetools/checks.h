// What the split and the merge look at before they begin, in their order. The first thing amiss ends the click, some
// of them without a word.
#pragma once

#include "platform/paths.h"
#include <QString>
#include <QStringList>
#include <optional>

namespace filetools {

enum class Field { None, Source, Target, Limit };

struct Refusal {
    QString text; // of the box; empty: nothing is said
    Field focus = Field::None;
};

// Nothing where the split may go on to the question about existing files. `source` and `target` are trimmed.
std::optional<Refusal> refuseSplit(const QString &source, bool sourceExists, const QString &target,
                                   const QString &limit, QChar separator = platform::pathSeparator);

// Nothing where the merge may go on to the question about an existing target, which is trimmed. A source counts as the
// target only when it is written like it to the letter.
std::optional<Refusal> refuseMerge(const QStringList &sources, const QString &target);

QString overwriteQuestion(const QString &mask);
QString replaceQuestion(const QString &target);

// The records per file that a text means: its number taken to the nearest whole one, a half to the even one. Nothing
// where it is no number, or none to count by.
std::optional<qint64> recordsPerFile(QStringView limit);

} // namespace filetools
