// The bar chart of the rules with the most remarks: one bar each, with its number, painted by level.
#pragma once

#include "batch/batchReport.h"
#include <QBrush>
#include <QByteArray>
#include <QFont>
#include <QPalette>
#include <QRectF>
#include <QSize>
#include <array>

class QChart;
class QPainter;

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

// Returns the chart of the most frequent rules; the caller takes ownership.
QChart *newRuleChart(const BatchReport &report, const ChartInk &ink, const QFont &font);
// Returns the least size at which all texts of the chart are legible.
QSize chartSize(const BatchReport &report, const QFont &font);

void drawChart(QPainter &painter, const QRectF &target, const BatchReport &report, const ChartInk &ink,
               const QFont &font);
QByteArray chartAsSvg(const BatchReport &report, const ChartInk &ink, const QFont &font);

} // namespace batch
