// Saves the report to "errorlog.txt" in the program's own folder, which holds the report saved last.
#pragma once

#include "platform/result.h"

namespace proof {

// Replaces the file in `folder` (with a separator at its end) by the text and one line end, in code page 936. Returns
// the text that names the file. Fails if the file cannot be written; the old file may then be lost if the folder allows
// no new file.
platform::Result<QString> saveReport(const QString &text, const QString &folder);

} // namespace proof
