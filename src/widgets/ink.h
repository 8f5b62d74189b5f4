// Colours of text that say something.
#pragma once

#include <QColor>

namespace widgets {

// Of warnings; legible on light and on dark windows.
inline QColor warningInk(const QColor &window) {
    return window.lightness() > 127 ? QColor(0xa0, 0x20, 0x00) : QColor(0xff, 0xb0, 0x80);
}

} // namespace widgets
