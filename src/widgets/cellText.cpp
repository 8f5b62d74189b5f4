#include "widgets/cellText.h"

namespace widgets {

constexpr qsizetype shownCharacters = 1000;

QString shownText(const QString &value) {
    QString shown = value.left(shownCharacters);
    for (QChar &character : shown)
        if (character == u'\n' || character == u'\r' || character == QChar::LineSeparator)
            character = u' ';
    return shown;
}

} // namespace widgets
