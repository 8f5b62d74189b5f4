// The choice of the sort dialog: columns of the catalogue list in sort order, ascending.
#pragma once

#include <QList>
#include <QString>
#include <array>

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

// The chosen fields that a stored order shows again, as indices of orderFields. The order is looked up as one text: one
// of several columns holds commas, equals no column and chooses nothing.
QList<int> chosenOf(const QString &sortOrder);

// The order text of chosen fields, with no direction: ascending is the server's default.
QString orderText(const QList<int> &chosen);

} // namespace catalogue
