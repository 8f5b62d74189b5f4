// Paths with native separators. The separator is a parameter so that tests can try both on every system.
#pragma once

#include "platform/result.h"
#include <QChar>
#include <QString>
#include <QStringList>

namespace platform {

#ifdef Q_OS_WIN
inline constexpr QChar pathSeparator = u'\\';
#else
inline constexpr QChar pathSeparator = u'/';
#endif

// Returns the path with a separator at its end, added only if it has none there.
QString pathWithSlash(const QString &path, QChar separator = pathSeparator);

// Returns the path up to and including its last separator; an empty string if it has none. Where `separator` is '\\',
// '/' separates as well, since Windows takes both.
QString folderOf(const QString &path, QChar separator = pathSeparator);

// Returns whether the path names an existing file and not a folder.
bool fileExists(const QString &path);

// Returns whether both paths refer to the same existing file, links resolved.
bool isSameFile(const QString &one, const QString &other);

// Returns the files of `folder` whose names are prefix + two characters + suffix, compared literally (characters of the
// names are not wildcards). The paths are full and sorted. `folder` ends with a separator.
QStringList filesWithTwoWildcards(const QString &folder, const QString &prefix, const QString &suffix);

// Renames the file `from` to `to`, replacing an existing file. Fails with the system's reason.
Status moveOver(const QString &from, const QString &to);

// Deletes the file. Fails with the system's reason.
Status removeFile(const QString &path);

} // namespace platform
