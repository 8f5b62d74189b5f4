// The choice in the sort dialog: columns of the catalogue list in sort order, ascending.
#pragma once

#include <QList>
#include <QString>
#include <array>
#include <optional>
#include <span>

namespace catalogue {

struct OrderField {
    QStringView column;
    QStringView label;
};

inline constexpr auto orderFields = std::to_array<OrderField>({
    {u"bookname", u"书名"},
    {u"author", u"著者"},
    {u"ISBN", u"ISBN"},
    {u"classcode", u"分类号"},
    {u"publisher", u"出版社"},
    {u"catatime", u"入库日期"},
});

// Returns the chosen fields for a stored order, as indices of orderFields. The order is compared as a whole: an order
// of several columns contains commas, matches no column and returns an empty list.
QList<int> chosenOf(const QString &sortOrder);

// The columns of the tables that the two lists show, by the numbers of the columns in the list; empty for one that is
// hidden.
inline constexpr auto catalogueColumns = std::to_array<QStringView>(
    {u"", u"ISBN", u"bookname", u"author", u"classcode", u"publisher", u"bookcount", u"catatime"});
inline constexpr auto storeColumns = std::to_array<QStringView>(
    {u"zskid", u"bookname", u"author", u"ISBN", u"classcode", u"pages", u"measure", u"edition"});
using ListColumns = std::span<const QStringView>;

// An order by one column of a list, by the number of the column in the list.
struct HeadingOrder {
    int column;
    bool descending;
};
// Returns the order if the text names one column that is shown, with or without a direction.
std::optional<HeadingOrder> headingOrder(const QString &order, ListColumns columns);
// Returns the order after a click on the heading of a column: ascending, and descending if the list is in ascending
// order already. Returns an empty text for a column that has no order.
QString orderAfterClick(int column, const QString &order, ListColumns columns);

// Returns the order text of the chosen fields, without a direction since ascending is the default of servers.
QString orderText(const QList<int> &chosen);

} // namespace catalogue
