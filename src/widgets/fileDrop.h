// A file that is dropped on a window. It is copied as far as the desktop is concerned: a window that reads a file must
// not let the desktop move it away.
#pragma once

#include <QString>
#include <optional>

class QDropEvent;

namespace widgets {

// Accepts the drag or drop of one local file, and gives its path in the machine's manner; anything else is not
// accepted.
std::optional<QString> acceptFile(QDropEvent *event);

} // namespace widgets
