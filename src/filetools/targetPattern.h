// The names of the files that a split writes, made from the target path that the user gives: a number goes between
// the name and the extension of three letters.
#pragma once

#include "platform/paths.h"
#include <QString>
#include <QStringList>
#include <optional>

namespace filetools {

struct TargetPattern {
    QString folder;    // its separator included
    QString name;      // may be empty
    QString extension; // four characters, the point included

    static constexpr int firstNumber = 700;

    // Numbers grow by 1 and get a fourth digit where three do not do.
    QString numbered(int number) const;
    // What a person sees for the files 700 to 799, the only ones that are asked about and deleted.
    QString mask() const;
    // Those of them that exist. The name's own brackets and stars stand for themselves.
    QStringList existing() const;
};

// The last four characters are taken for the extension, whatever they are. Nothing where they overlap the folder.
std::optional<TargetPattern> targetPattern(const QString &target, QChar separator = platform::pathSeparator);

} // namespace filetools
