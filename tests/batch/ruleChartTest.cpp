#include "batch/windows/ruleChart.h"
#include "support/qtPrinters.h"
#include "widgets/styleTokens.h"
#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QHorizontalStackedBarSeries>
#include <QLegend>
#include <QValueAxis>

using namespace batch;
using schema::Level;

TEST(RuleChart, HasABarForEachRuleInTheInksOfItsScheme) {
    BatchReport report;
    report.rules = {{.label = u"一二三四五六七八九十甲乙丙丁戊"_s, .remarks = 7},
                    {.label = u"一二三四五六七八九十甲乙丙丁"_s, .level = Level::Warning, .remarks = 4},
                    {.label = u"重"_s, .level = Level::Hint, .remarks = 2},
                    {.label = u"重"_s, .level = Level::Hint, .remarks = 2}};
    const ChartInk ink = schemeInk(widgets::schemePalette(widgets::Scheme::Dark));
    QFont font = QApplication::font();
    font.setPixelSize(21);
    const std::unique_ptr<QChart> chart(newRuleChart(report, ink, font));
    auto *names = qobject_cast<QBarCategoryAxis *>(chart->axes(Qt::Vertical).value(0));
    const auto *counts = qobject_cast<QValueAxis *>(chart->axes(Qt::Horizontal).value(0));
    auto *bars = qobject_cast<QHorizontalStackedBarSeries *>(chart->series().value(0));
    ASSERT_TRUE(names && counts && bars && bars->barSets().size() == 3);
    EXPECT_EQ(bars->attachedAxes().size(), 2);
    EXPECT_EQ(names->categories(), (QStringList{u"重　2"_s, u"重　2\u200B"_s, u"一二三四五六七八九十甲乙丙丁　4"_s,
                                                u"一二三四五六七八九十甲乙丙…　7"_s}))
        << "from the bottom";
    EXPECT_TRUE(counts->min() == 0 && counts->max() == 8 && counts->labelFormat() == u"%d");
    const QList<QList<double>> values{{0, 0, 0, 7}, {0, 0, 4, 0}, {2, 2, 0, 0}};
    for (int level = 0; level < 3; ++level) {
        const QBarSet *set = bars->barSets()[level];
        EXPECT_TRUE(set->label() == nameOf(Level(level)) && set->brush() == ink.bars[size_t(level)].fill) << level;
        EXPECT_EQ(set->pen().color(), ink.bars[size_t(level)].edge);
        for (int bar = 0; bar < 4; ++bar)
            EXPECT_EQ(set->at(bar), values[level][bar]) << level << bar;
    }
    EXPECT_TRUE(chart->backgroundBrush() == ink.background && chart->legend()->labelColor() == ink.ink);
    EXPECT_TRUE(names->labelsColor() == ink.ink && counts->labelsColor() == ink.ink);
    EXPECT_TRUE(counts->gridLinePen().color() == ink.hairline && counts->linePen().color() == ink.hairline);
    EXPECT_TRUE(names->linePen().color() == ink.ink && !names->isGridLineVisible());
    EXPECT_TRUE(names->labelsFont() == font && counts->labelsFont() == font && chart->legend()->font() == font);
    EXPECT_FALSE(names->truncateLabels() || counts->truncateLabels());
    EXPECT_TRUE(chart->backgroundPen() == Qt::NoPen && chart->margins().isNull() && chart->backgroundRoundness() == 0);
    EXPECT_EQ(chart->legend()->alignment(), Qt::AlignTop);
    const QByteArray svg = QByteArray::fromBase64(chartAddress(report, ink, font).section(u',', 1).toLatin1());
    EXPECT_TRUE(svg.contains("<svg width=\"")) << "a browser knows its size";
    EXPECT_GT(svg.count("<text"), 6) << "the chart is drawn";
}
