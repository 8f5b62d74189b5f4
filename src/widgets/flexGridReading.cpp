// The text that a screen reader reads of a flexible grid.
#include "widgets/cellText.h"
#include "widgets/flexGridModel.h"

namespace widgets {

void FlexGridModel::setColumnShown(int column, bool shown) {
    if (column >= 0 && column < columnCount())
        m_columns[size_t(column)].shown = shown;
}

QString FlexGridModel::rowText(int row) const {
    QStringList texts;
    for (int column = 0; column < columnCount(); ++column)
        if (const QString cell = shownText(text(row, column)); m_columns[size_t(column)].shown && !cell.isEmpty())
            texts.append(cell);
    return texts.join(u' ');
}

} // namespace widgets
