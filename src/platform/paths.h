// Paths in the machine's own manner. The separator is a parameter so that both manners can be tried everywhere.
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

// The path with a separator at its end, added only where it is missing.
QString pathWithSlash(const QString &path, QChar separator = pathSeparator);

// The path up to and including its last separator; empty where there is none.
QString folderOf(const QString &path, QChar separator = pathSeparator);

// Whether a plain file (not a folder) of that name exists.
bool fileExists(const QString &path);

// Whether both paths lead to one existing file, however they are written, links included.
bool isSameFile(const QString &one, const QString &other);

// The files of `folder` whose name is prefix + two characters + suffix, compared literally (no wildcard reading of the
// names' own characters); full paths, sorted. `folder` ends in a separator.
QStringList filesWithTwoWildcards(const QString &folder, const QString &prefix, const QString &suffix);

// Deletes the file; the reason where the machine refuses.
Status removeFile(const QString &path);

} // namespace platform
