// Reads the UTF-8 source texts of the build tools and reports errors with their line number.
#pragma once

#include "platform/result.h"
#include <QStringList>

namespace tools {

// Returns the lines without line ends. Fails if the text is not UTF-8 or contains a character that code page 936 cannot
// encode, because the program could not read it.
platform::Result<QStringList> readSource(const QString &path);

// Returns "line 12: what"; `index` counts from 0, the printed number from 1.
QString atLine(qsizetype index, const QString &what);

// Prints "path: what" to standard error and returns the exit code for failure.
int complain(const QString &path, const QString &what);

} // namespace tools
