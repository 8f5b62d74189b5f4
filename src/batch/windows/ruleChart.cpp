#include "batch/windows/ruleChart.h"
#include "widgets/styleTokens.h"
#include <QBarCategoryAxis>
#include <QBarSet>
#include <QBuffer>
#include <QChart>
#include <QFontMetrics>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QHorizontalStackedBarSeries>
#include <QLegend>
#include <QPainter>
#include <QSvgGenerator>
#include <QValueAxis>
#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using schema::Level;
using widgets::Colour;

namespace batch {

namespace {

constexpr int longestLabel = 14;   // characters
constexpr int widthInLines = 44;   // of the chart
constexpr double barInLines = 1.6; // height of a bar with its gap
constexpr double frameInLines = 4; // height of legend and margins

// The axis writes its first category at the bottom.
std::vector<const RuleEntry *> fromBottom(const BatchReport &report) {
    std::vector<const RuleEntry *> entries = mostFrequent(report);
    std::ranges::reverse(entries);
    return entries;
}

// The number is part of the label: the stacked series would also write the zeros of the other levels.
QString labelOf(const RuleEntry &entry) {
    const QString name = entry.label.size() > longestLabel ? entry.label.first(longestLabel - 1) + u'…' : entry.label;
    return name + u"　"_s + QString::number(entry.remarks);
}

QHorizontalStackedBarSeries *barsOf(const std::vector<const RuleEntry *> &entries, const ChartInk &ink) {
    auto *series = new QHorizontalStackedBarSeries;
    constexpr double barWidth = 0.62; // of the room for a bar
    series->setBarWidth(barWidth);
    for (size_t level = 0; level < schema::levelCount; ++level) {
        auto *set = new QBarSet(nameOf(Level(level)).toString());
        for (const RuleEntry *entry : entries)
            set->append(entry->level == Level(level) ? entry->remarks : 0);
        set->setBrush(ink.bars[level].fill);
        set->setPen(QPen(ink.bars[level].edge, 1));
        series->append(set);
    }
    return series;
}

// Axes show the same category only once.
QStringList distinct(QStringList labels) {
    for (qsizetype i = 0; i < labels.size(); ++i)
        while (labels.first(i).contains(labels[i]))
            labels[i] += u'\u200B'; // has no width
    return labels;
}

QAbstractAxis *nameAxis(const std::vector<const RuleEntry *> &entries, const ChartInk &ink, const QFont &font) {
    auto *axis = new QBarCategoryAxis;
    QStringList labels;
    for (const RuleEntry *entry : entries)
        labels.append(labelOf(*entry));
    axis->append(distinct(labels));
    axis->setLabelsFont(font);
    axis->setLabelsColor(ink.ink);
    axis->setTruncateLabels(false);
    axis->setGridLineVisible(false);
    axis->setLinePen(QPen(ink.ink, 1));
    return axis;
}

QAbstractAxis *countAxis(const std::vector<const RuleEntry *> &entries, const ChartInk &ink, const QFont &font) {
    auto *axis = new QValueAxis;
    axis->setRange(0, entries.empty() ? 1 : std::max(entries.back()->remarks, 1));
    axis->setLabelFormat(u"%d"_s);
    axis->applyNiceNumbers();
    axis->setTruncateLabels(false); // below few bars
    axis->setLabelsFont(font);
    axis->setLabelsColor(ink.ink);
    axis->setGridLinePen(QPen(ink.hairline, 1));
    axis->setLinePen(QPen(ink.hairline, 1));
    return axis;
}

} // namespace

ChartInk schemeInk(const QPalette &palette) {
    const auto of = [&palette](Colour name) { return widgets::colour(name, palette); };
    return {.ink = of(Colour::Ink),
            .hairline = of(Colour::Hairline),
            .background = of(Colour::Base),
            .bars = {{{of(Colour::ErrorInk), of(Colour::ErrorInk)},
                      {of(Colour::WarningTint), of(Colour::WarningInk)},
                      {of(Colour::QuietTint), of(Colour::SecondInk)}}}};
}

ChartInk paperInk() {
    const QPalette paper = widgets::schemePalette(widgets::Scheme::Light);
    const QColor black(Qt::black), white(Qt::white), grey = widgets::colour(Colour::Edge, paper);
    return {.ink = black,
            .hairline = widgets::colour(Colour::Hairline, paper),
            .background = white,
            .bars = {{{black, black}, {grey, black}, {white, black}}}};
}

QChart *newRuleChart(const BatchReport &report, const ChartInk &ink, const QFont &font) {
    const std::vector<const RuleEntry *> entries = fromBottom(report);
    auto *chart = new QChart;
    QHorizontalStackedBarSeries *series = barsOf(entries, ink);
    chart->addSeries(series);
    QAbstractAxis *names = nameAxis(entries, ink, font), *counts = countAxis(entries, ink, font);
    chart->addAxis(names, Qt::AlignLeft);
    chart->addAxis(counts, Qt::AlignBottom);
    series->attachAxis(names);
    series->attachAxis(counts);
    chart->setBackgroundBrush(ink.background);
    chart->setBackgroundRoundness(0);
    chart->setMargins({});
    chart->layout()->setContentsMargins(0, 0, 0, 0);
    chart->legend()->setAlignment(Qt::AlignTop);
    chart->legend()->setFont(font);
    chart->legend()->setLabelColor(ink.ink);
    return chart;
}

QSize chartSize(const BatchReport &report, const QFont &font) {
    const int line = QFontMetrics(font).lineSpacing();
    const size_t bars = std::min(report.rules.size(), mostFrequentShown);
    return QSizeF(widthInLines * line, (double(bars) * barInLines + frameInLines) * line).toSize();
}

void drawChart(QPainter &painter, const QRectF &target, const BatchReport &report, const ChartInk &ink,
               const QFont &font) {
    QGraphicsScene scene;
    QChart *chart = newRuleChart(report, ink, font);
    scene.addItem(chart);
    chart->resize(chartSize(report, font));
    scene.setSceneRect(chart->rect());
    scene.render(&painter, target, chart->rect());
}

QByteArray chartAsSvg(const BatchReport &report, const ChartInk &ink, const QFont &font) {
    QByteArray svg;
    QBuffer buffer(&svg);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    const QRect whole({}, chartSize(report, font));
    generator.setSize(whole.size());
    generator.setViewBox(whole);
    QPainter painter(&generator);
    drawChart(painter, whole, report, ink, font);
    painter.end();
    return svg;
}

} // namespace batch
