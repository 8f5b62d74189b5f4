#include "database/resultTable.h"
#include <random>
#include <vector>

using namespace Qt::StringLiterals;
using database::ResultTable;

// Cells of every kind, with long and short rows mixed, so that texts start at odd offsets and blocks fill up: the table
// returns what was stored, with both ways of storing.
TEST(ResultTable, ReturnsWhatWasStored) {
    constexpr int rows = 4000, columns = 5;
    const QStringList texts = {u""_s,
                               u"7-04-000123-4"_s,
                               u"Äpfel ÿ"_s,
                               u"Ā"_s,
                               u"中"_s,
                               u"中国图书分类 G25 €"_s,
                               u"𠮷野\uFFFD"_s,
                               QString(62, u'x'),
                               QString(63, u'书'),
                               QString(64, u'x'),
                               QString(5000, u'x'),
                               QString(300'000, u'书')};
    std::mt19937 random(7);
    std::discrete_distribution<int> kind({20, 20, 20, 20, 20, 20, 20, 9, 9, 9, 2, 0.2, 20}); // the last kind is NULL
    ResultTable table({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    std::vector<int> kinds;
    for (int cell = 0; cell < rows * columns; ++cell) {
        kinds.push_back(kind(random));
        if (kinds.back() == texts.size())
            table.appendNull();
        else if (random() % 2)
            table.append(texts[kinds.back()]);
        else
            table.appendUtf8(texts[kinds.back()].toUtf8());
    }
    ASSERT_EQ(table.rowCount(), rows);
    for (int cell = 0; cell < rows * columns; ++cell) {
        const int kind = kinds[size_t(cell)];
        ASSERT_EQ(table.text(cell / columns, cell % columns), texts.value(kind)) << cell;
        ASSERT_EQ(table.isNull(cell / columns, cell % columns), kind == texts.size()) << cell;
    }
    table.append(u"begun");
    EXPECT_EQ(table.rowCount(), rows);
}
