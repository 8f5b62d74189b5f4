// A file dropped on a window. The drop is always a copy, since a window that reads a file must not let the desktop move
// the file away.
#pragma once

#include <QString>
#include <optional>

class QDropEvent;

namespace widgets {

// Accepts the drag or drop of one local file and returns its path with native separators. Other drags and drops are not
// accepted and return std::nullopt.
std::optional<QString> acceptFile(QDropEvent *event);

} // namespace widgets
