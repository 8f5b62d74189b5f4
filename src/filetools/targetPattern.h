// The names of the files that a split writes: the target path of the user with a number between the name and the
// extension of three letters.
#pragma once

#include "platform/paths.h"
#include <QString>
#include <QStringList>
#include <optional>

namespace filetools {

struct TargetPattern {
    QString folder;    // including its separator
    QString name;      // may be empty
    QString extension; // four characters, including the point

    static constexpr int firstNumber = 700;

    // `number` starts at firstNumber and increases by 1; from 1000 on it has four digits.
    QString numbered(int number) const;
    // Returns the readable pattern of files 700 to 799, the only ones that the question is about and that are deleted.
    QString mask() const;
    // Returns the existing ones of these files. Brackets and stars in the name are taken literally.
    QStringList existing() const;
};

// Splits a target path. Any last four characters count as the extension. Returns std::nullopt if they overlap the
// folder.
std::optional<TargetPattern> targetPattern(const QString &target, QChar separator = platform::pathSeparator);

} // namespace filetools
