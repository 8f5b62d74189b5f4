// The report on disk: "errorlog.txt" beside the program holds the report saved last.
#pragma once

#include "platform/result.h"

namespace proof {

// Replaces the file in `folder` (with a separator at its end) by the text, in code page 936, and one line end. The
// words that tell where it is, or the reason why it could not be written; then the old file may be gone.
platform::Result<QString> saveReport(const QString &text, const QString &folder);

} // namespace proof
