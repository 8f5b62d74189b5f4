#include "platform/tableSource.h"

namespace platform {

QString tabSeparated(QStringList cells) {
    for (QString &cell : cells)
        for (QChar &c : cell)
            if (c == u'\t' || c == u'\n' || c == u'\r')
                c = u' ';
    return cells.join(u'\t');
}

} // namespace platform
