// The program's own folder, where it reads its configuration files and writes its report: the folder of the executable,
// or a folder in the user's data if the user cannot write to the executable's or an installer filled it.
// In the latter case the files supplied with the program are copied to the user's folder once; they belong to the user
// from then on and are never overwritten.
#pragma once

#include "platform/result.h"
#include <QString>
#include <QStringList>
#include <span>

namespace platform {

// Returns the folder of the executable if this user can write to it and no installer filled it, else `userFolder`.
QString programFolder(const QString &executableFolder, const QString &userFolder);
// The same for the running program and the user's data folder.
QString programFolder();

struct LaidFiles {
    QStringList newer;   // paths of files written next to an existing one, under its name with ".new"
    QStringList refused; // paths of files that could not be copied, each with the system's reason
};

// Copies the named files of `from` to `to`, which is made if missing; does nothing if both are the same folder. An
// existing file stays unchanged; if the file in `from` differs from the one supplied last, it is written once next to
// the existing file. The sums of the files supplied last are kept in `to` as laid.txt, in the format of sha256sum.
LaidFiles layFiles(const QString &from, const QString &to, std::span<const QStringView> names);

} // namespace platform
