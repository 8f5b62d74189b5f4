// Text colours that carry a meaning.
#pragma once

#include <QColor>
#include <QPalette>

namespace widgets {

// For warnings; legible on light and dark windows.
inline QColor warningInk(const QColor &window) {
    return window.lightness() > 127 ? QColor(0xa0, 0x20, 0x00) : QColor(0xff, 0xb0, 0x80);
}

// For links and marks on the base colour. The desktop's own link colour is too dark on a dark base.
inline QColor linkInk(const QPalette &palette) {
    const QColor link = palette.color(QPalette::Link);
    return palette.color(QPalette::Base).lightness() < 128 ? link.lighter(170) : link;
}

} // namespace widgets
