// The bar chart of the rules with the most remarks: one bar each, with its number, painted by level. Qt Charts draws it
// (ruleChart.cpp); in a build without Qt Charts a painter does (paintedChart.cpp).
#pragma once

#include "batch/batchReport.h"
#include <QBrush>
#include <QFont>
#include <QPalette>
#include <QRectF>
#include <QSize>
#include <array>

class QChart;
class QPainter;
class QWidget;

namespace batch {

struct BarInk {
    QBrush fill;
    QColor edge;
};
struct ChartInk {
    QColor ink, hairline, background;
    std::array<BarInk, schema::levelCount> bars;
};
ChartInk schemeInk(const QPalette &palette);
ChartInk paperInk(); // black, grey and white

// Returns the least size at which all texts of the chart are legible.
QSize chartSize(const BatchReport &report, const QFont &font);
// Returns the label of a bar, which includes its number.
QString labelOf(const RuleEntry &entry);

// Returns the chart of the most frequent rules as an object of Qt Charts; the caller takes ownership.
QChart *newRuleChart(const BatchReport &report, const ChartInk &ink, const QFont &font);

// Returns the widget that shows the chart in a window; showInView() expects only such a widget.
QWidget *newChartView();
void showInView(QWidget &view, const BatchReport &report, const ChartInk &ink, const QFont &font);

void drawChart(QPainter &painter, const QRectF &target, const BatchReport &report, const ChartInk &ink,
               const QFont &font);
// Returns the chart as the address of a picture in a web page, with the picture in it.
QString chartAddress(const BatchReport &report, const ChartInk &ink, const QFont &font);

} // namespace batch
