// The texts of the source tree that the tools of the build read: UTF-8, one thing to a line, told back with the number
// of the line where something is wrong.
#pragma once

#include "platform/result.h"
#include <QStringList>

namespace tools {

// The lines without their ends. Fails where the text is not UTF-8, or has a character that code page 936 lacks: it
// could not reach the program.
platform::Result<QStringList> readSource(const QString &path);

// "line 12: what"; `index` counts from 0.
QString atLine(qsizetype index, const QString &what);

// Prints "path: what" and gives the exit code of a tool that has failed.
int complain(const QString &path, const QString &what);

} // namespace tools
