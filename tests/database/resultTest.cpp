#include "database/resultTable.h"
#include "support/dice.h"
#include "support/qtPrinters.h"

TEST(ResultTable, GivesBackEveryCell) {
    Dice dice(7);
    database::ResultTable table({u"zskid"_s, u"ISBN"_s, u"marc"_s});
    QStringList cells; // a null QString stands for a NULL
    for (int i = 0; i < 3 * 2000; ++i) {
        constexpr auto sizes = std::to_array<qsizetype>({-1, 0, 1, 13, 300, 5000, 300000});
        const qsizetype size = sizes[std::size_t(dice.below(i % 500 == 0 ? 7 : 6))];
        cells.append(size < 0 ? QString() : QString(size, QChar(u'一' + dice.below(1000))));
        if (size < 0)
            table.appendNull();
        else
            table.append(cells.last());
    }
    ASSERT_EQ(table.rowCount(), 2000);
    for (int i = 0; i < cells.size(); ++i) {
        ASSERT_EQ(table.isNull(i / 3, i % 3), cells[i].isNull()) << i;
        ASSERT_TRUE(table.text(i / 3, i % 3) == cells[i]) << i;
    }
    EXPECT_EQ(table.column(u"isbn"), 1);
    EXPECT_EQ(table.column(u"edtion"), std::nullopt);
}
