#include "catalogue/sortOrder.h"
#include "platform/numbers.h"
#include <QStringList>
#include <algorithm>

namespace catalogue {

QList<int> chosenOf(const QString &sortOrder) {
    const QString column = platform::trimBlanks(sortOrder);
    const auto row = std::ranges::find(orderFields, QStringView(column), &OrderField::column);
    if (row == orderFields.end())
        return {};
    return {int(row - orderFields.begin())};
}

QString orderText(const QList<int> &chosen) {
    QStringList columns;
    for (const int index : chosen)
        columns.append(orderFields[size_t(index)].column.toString());
    return columns.join(u',');
}

} // namespace catalogue
