#include "batch/windows/ruleChart.h"
#include <QBarCategoryAxis>
#include <QBarSet>
#include <QBuffer>
#include <QChart>
#include <QChartView>
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

namespace batch {

namespace {

// The axis writes its first category at the bottom.
std::vector<const RuleEntry *> fromBottom(const BatchReport &report) {
    std::vector<const RuleEntry *> entries = mostFrequent(report);
    std::ranges::reverse(entries);
    return entries;
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

QWidget *newChartView() {
    auto *view = new QChartView;
    view->setRenderHint(QPainter::Antialiasing);
    return view;
}

void showInView(QWidget &view, const BatchReport &report, const ChartInk &ink, const QFont &font) {
    auto &charts = static_cast<QChartView &>(view);
    const std::unique_ptr<QChart> before(charts.chart());
    charts.setChart(newRuleChart(report, ink, font));
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

QString chartAddress(const BatchReport &report, const ChartInk &ink, const QFont &font) {
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
    return u"data:image/svg+xml;base64,"_s + QString::fromLatin1(svg.toBase64());
}

} // namespace batch
