// The families of fonts that are asked for, best first; each is on some of the systems.
#pragma once

#include <QStringList>

namespace platform {

// Of the windows, beside the desktop's own.
inline QStringList plainFaces() {
    return QStringLiteral("Microsoft YaHei UI|Noto Sans CJK SC|WenQuanYi Micro Hei").split(u'|');
}

// Song style, of long texts and of print.
inline QStringList songFaces() {
    return QStringLiteral("宋体|SimSun|NSimSun|Songti SC|Noto Serif CJK SC|Source Han Serif SC|Noto Sans CJK SC")
        .split(u'|');
}

} // namespace platform
