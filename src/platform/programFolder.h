// The program's own folder, where its configuration files are read and its report is written: beside the executable, or
// in the user's own data where a package has put the executable out of the user's reach. There the files that came with
// the program are laid down once and belong to the user from then on: none is ever written over.
#pragma once

#include "platform/result.h"
#include <QString>
#include <QStringList>
#include <span>

namespace platform {

// The folder of the executable where this user can write into it, else `userFolder`.
QString programFolder(const QString &executableFolder, const QString &userFolder);
// The same for the running program and the user's data.
QString programFolder();

struct LaidFiles {
    QStringList newer;   // paths of those laid beside a file that stands, under its name with ".new"
    QStringList refused; // paths of those that could not be laid, each with the machine's reason
};

// Lays the named files of `from` into `to`, which is made where it is missing; nothing where both are one folder. A
// file that stands stays as it is; where `from` brings another one than last time, that goes beside it, once. What was
// brought last is remembered in `to` as laid.txt: sums and names in the manner of sha256sum.
LaidFiles layFiles(const QString &from, const QString &to, std::span<const QStringView> names);

} // namespace platform
