// Font families, best first; each one exists on some of the systems.
#pragma once

#include <QStringList>

namespace platform {

// For the windows, in addition to the desktop's own font.
inline QStringList plainFaces() {
    return QStringLiteral("Microsoft YaHei UI|Noto Sans CJK SC|WenQuanYi Micro Hei").split(u'|');
}

// Song style, for long texts and for printing.
inline QStringList songFaces() {
    return QStringLiteral("宋体|SimSun|NSimSun|Songti SC|Noto Serif CJK SC|Source Han Serif SC|Noto Sans CJK SC")
        .split(u'|');
}

} // namespace platform
