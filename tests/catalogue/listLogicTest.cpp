// The order in a statement, the order of the sort dialog, the column widths, and the progress text.
#include "catalogue/columnWidths.h"
#include "catalogue/listStatements.h"
#include "catalogue/listTexts.h"
#include "catalogue/sortOrder.h"
#include "support/databaseServers.h"
#include "support/dice.h"
#include <limits>
#include <set>

using namespace catalogue;

TEST(ListStatements, AppendTheOrderToADeleteOnlyAfterACondition) {
    EXPECT_EQ(deleteAllStatement({}, u"author"_s), u"delete from taoluTable"_s);
    EXPECT_EQ(deleteAllStatement(u"a='b'"_s, u"author"_s), u"delete from taoluTable where a='b' order by author"_s);
    EXPECT_EQ(deleteRowStatement(u"0012"_s), u"delete from taoluTable where zskid=0012"_s);
}

// Runs of all lengths, more of them than SQLite allows terms in an expression, repeated keys, and limits of the type.
TEST(ListStatements, KeysSelectOnlyTheirOwnRows) {
    constexpr int rows = 20'000;
    const TestDatabase database;
    database.run(u"insert into taoluTable (zskid) with recursive n(i) as (select 1 union all select i+1 from n where "
                 "i<%1) select i from n; insert into taoluTable (zskid) values (-9223372036854775808),"
                 "(9223372036854775807),(9223372036854775806),(-1)"_s.arg(rows));
    Dice dice(17);
    std::set<qint64> wanted{std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()};
    for (int key = 1; key <= rows; key += 1 + dice.below(3)) {
        for (int length = dice.below(9); length > 0 && key <= rows; --length)
            wanted.insert(key++);
    }
    QList<qint64> keys(wanted.begin(), wanted.end());
    keys.append(keys.first(40));
    std::ranges::reverse(keys);
    const auto found = [&](const QList<qint64> &of) {
        return database.column(u"select zskid from taoluTable where " + keysCondition(of) + u" order by zskid");
    };
    QStringList expected;
    for (const qint64 key : wanted)
        expected.append(QString::number(key));
    EXPECT_GT(expected.size(), 5000);
    EXPECT_EQ(found(keys), expected);
    EXPECT_EQ(found({}), QStringList());
}

TEST(SortOrder, ShowsAStoredOrderOfOneColumnAgain) {
    EXPECT_EQ(orderText({2, 0, 5}), u"ISBN,bookname,catatime"_s);
    EXPECT_EQ(chosenOf(u" ISBN "_s), QList<int>{2});
    for (const QString &order : {u""_s, u"isbn"_s, u"bookname,author"_s, u"bookname Desc"_s})
        EXPECT_TRUE(chosenOf(order).isEmpty()) << order.toStdString();
}

TEST(SortOrder, FollowsTheHeadings) {
    const std::tuple<QString, int, QString> clicks[] = {
        {u""_s, 2, u"bookname"_s},
        {u"bookname"_s, 2, u"bookname Desc"_s},
        {u"bookname Desc"_s, 2, u"bookname"_s},
        {u"isbn Asc"_s, 1, u"ISBN Desc"_s},
        {u"bookname,author"_s, 2, u"bookname"_s},
        {u"bookname"_s, 0, u""_s},
        {u"bookname"_s, 7, u"catatime"_s},
        {u"bookname"_s, 8, u""_s},
    };
    for (const auto &[order, column, next] : clicks)
        EXPECT_EQ(orderAfterClick(column, order, catalogueColumns), next) << order.toStdString() << column;
    EXPECT_EQ(orderAfterClick(0, {}, std::to_array<QStringView>({u"price"})), u"price"_s) << "a list without a mark";
    for (const QString &order : {u""_s, u"price"_s, u"bookname,author"_s, u"bookname up"_s, u"author Asc x"_s})
        EXPECT_FALSE(headingOrder(order, catalogueColumns)) << order.toStdString();
}

TEST(ColumnWidths, ShareWhatTheFixedColumnsLeave) {
    // 17.37 rows fit below a heading of 350 twips: 17 rows need no scroll bar, 18 do.
    const GridRoom room{11000, 350 + 6080, 18, 350};
    EXPECT_EQ(catalogueWidths(room), (QList<int>{0, 1340, 2540, 1340, 910, 2540, 910, 1340}));
    const GridRoom full{11000, 350 + 6080, 19, 350};
    EXPECT_EQ(catalogueWidths(full)[2], (11000 - 5840 - 360) / 2);
    EXPECT_EQ(copiesWidths(full), (QList<int>{2333, 910, 2333, 910, 910, 910, 2333}));
    // Halves are rounded to even: 17.5 rows count as 18, 16.5 as 16.
    EXPECT_TRUE(!scrollBarShows({0, 350 + 6125, 19, 350}) && scrollBarShows({0, 350 + 5775, 18, 350}));
    EXPECT_FALSE(scrollBarShows({0, 0, 50, 0})) << "a grid that is not laid out yet";
    // A grid that is too narrow keeps its column widths.
    EXPECT_EQ(catalogueWidths({100, 100, 2, 350})[5], 910);
}

TEST(ListTexts, ShowTheWholePartOfTheExactPercentage) {
    EXPECT_EQ(progressText(29, 100), u"已经导出：29(29%)"_s);
    EXPECT_EQ(progressText(2, 3), u"已经导出：2(66%)"_s);
    EXPECT_EQ(progressText(0, 0), u"已经导出：0(100%)"_s);
    EXPECT_EQ(progressText(50'000'000, 50'000'000), u"已经导出：50000000(100%)"_s);
}
