#include "import/importRun.h"
#include "support/qtPrinters.h"

using namespace importing;

TEST(ImportRun, CountsAndTexts) {
    const bool results[] = {false, true, false, false, true};
    const QStringList records = {u"a"_s, u"b"_s, {}, u"d"_s, u"e"_s}; // the empty row repeats the success before it
    ImportRun run(5);
    QStringList said;
    while (run.hasNext()) {
        const int at = run.nextRow();
        run.take(records[at], [&](const QString &) { return results[at]; });
        said.append(run.countText().section(u'：', 1) + u' ' + run.percentText());
    }
    EXPECT_EQ(said, (QStringList{u"0 20.00%"_s, u"1 40.00%"_s, u"2 60.00%"_s, u"0 80.00%"_s, u"3 100.00%"_s}));
    EXPECT_EQ(run.closingText(), u"本次成功处理的记录数：3"_s);
}

TEST(ImportRun, PercentageRoundsHalfUp) {
    EXPECT_EQ(percentage(1, 3), u"33.33%"_s);
    EXPECT_EQ(percentage(2, 3), u"66.67%"_s);
    EXPECT_EQ(percentage(1, 800), u"0.13%"_s);
    EXPECT_EQ(percentage(1, 2'000'000'000), u"0.00%"_s);
}
