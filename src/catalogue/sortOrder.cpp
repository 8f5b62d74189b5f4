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

std::optional<HeadingOrder> headingOrder(const QString &order, ListColumns columns) {
    const QStringList words = order.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || words.size() > 2)
        return std::nullopt;
    const auto isNamed = [&](QStringView column) { return column.compare(words[0], Qt::CaseInsensitive) == 0; };
    const auto column = std::ranges::find_if(columns, isNamed);
    const QString direction = words.value(1).toLower();
    if (column == columns.end() || (words.size() == 2 && direction != u"asc" && direction != u"desc"))
        return std::nullopt;
    return HeadingOrder{int(column - columns.begin()), direction == u"desc"};
}

QString orderAfterClick(int column, const QString &order, ListColumns columns) {
    if (column < 0 || column >= int(columns.size()) || columns[size_t(column)].isEmpty())
        return {};
    const auto before = headingOrder(order, columns);
    const bool ascending = before && before->column == column && !before->descending;
    return columns[size_t(column)] + (ascending ? u" Desc" : u"");
}

QString orderText(const QList<int> &chosen) {
    QStringList columns;
    for (const int index : chosen)
        columns.append(orderFields[size_t(index)].column.toString());
    return columns.join(u',');
}

} // namespace catalogue
