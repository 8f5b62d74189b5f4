// The pictures of docs/style.md: every control in its states.
#pragma once

#include <QString>

namespace tour {

// Saves light.png and dark.png in the folder. Needs the style of the program.
void paintGallery(const QString &folder);

} // namespace tour
