// Colours of text that say something.
#pragma once

#include <QColor>
#include <QPalette>

namespace widgets {

// Of warnings; legible on light and on dark windows.
inline QColor warningInk(const QColor &window) {
    return window.lightness() > 127 ? QColor(0xa0, 0x20, 0x00) : QColor(0xff, 0xb0, 0x80);
}

// Of links and signs on a base; the desktop's own is too dark on a dark one.
inline QColor linkInk(const QPalette &palette) {
    const QColor link = palette.color(QPalette::Link);
    return palette.color(QPalette::Base).lightness() < 128 ? link.lighter(170) : link;
}

} // namespace widgets
