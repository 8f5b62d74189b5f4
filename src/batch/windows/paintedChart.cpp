#include "batch/windows/ruleChart.h"
#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;
using schema::Level;

namespace batch {

namespace {

constexpr double barWidth = 0.62; // of the room for a bar
constexpr int mostTicks = 5;

struct Bar {
    QString label;
    int remarks = 0;
    size_t level = 0;
};

struct Chart {
    std::vector<Bar> bars; // from the top
    ChartInk ink;
    QFont font;

    void paint(QPainter &painter, const QRectF &target) const;

private:
    void paintLegend(QPainter &painter, const QRectF &place) const;
    void paintAxis(QPainter &painter, const QRectF &plot, int step, int most) const;
    void paintBars(QPainter &painter, const QRectF &labels, const QRectF &plot, int most) const;
};

Chart chartOf(const BatchReport &report, const ChartInk &ink, const QFont &font) {
    Chart chart{.bars = {}, .ink = ink, .font = font};
    for (const RuleEntry *entry : mostFrequent(report))
        chart.bars.push_back({labelOf(*entry), entry->remarks, size_t(entry->level)});
    return chart;
}

// Returns the distance of the numbers on the axis: 1, 2 or 5, or one of them with zeros.
int stepFor(int most) {
    for (int power = 1;; power *= 10)
        for (const int first : {1, 2, 5})
            if (first * power * mostTicks >= most)
                return first * power;
}

void Chart::paint(QPainter &painter, const QRectF &target) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    painter.fillRect(target, ink.background);
    const QFontMetricsF metrics(font, painter.device());
    const double line = metrics.lineSpacing();
    double labelWidth = 0;
    for (const Bar &bar : bars)
        labelWidth = std::max(labelWidth, metrics.horizontalAdvance(bar.label));
    const double left = target.left() + line + labelWidth;
    const QRectF plot(QPointF(left + line / 2, target.top() + 1.6 * line),
                      target.bottomRight() - QPointF(line, 1.6 * line));
    const int greatest = bars.empty() ? 1 : std::max(bars.front().remarks, 1);
    const int step = stepFor(greatest), most = (greatest + step - 1) / step * step;
    paintLegend(painter, QRectF(target.topLeft(), QSizeF(target.width(), 1.4 * line)));
    paintAxis(painter, plot, step, most);
    paintBars(painter, QRectF(QPointF(target.left(), plot.top()), QPointF(left, plot.bottom())), plot, most);
    painter.restore();
}

void Chart::paintLegend(QPainter &painter, const QRectF &place) const {
    const QFontMetricsF metrics(font, painter.device());
    const double side = metrics.ascent() * 0.8, gap = metrics.averageCharWidth();
    double width = 0;
    for (size_t level = 0; level < ink.bars.size(); ++level)
        width += side + 3 * gap + metrics.horizontalAdvance(nameOf(Level(level)).toString());
    double x = place.center().x() - width / 2;
    for (size_t level = 0; level < ink.bars.size(); ++level) {
        const QString name = nameOf(Level(level)).toString();
        painter.setPen(QPen(ink.bars[level].edge, 1));
        painter.setBrush(ink.bars[level].fill);
        painter.drawRect(QRectF(x, place.center().y() - side / 2, side, side));
        painter.setPen(ink.ink);
        x += side + gap;
        painter.drawText(QRectF(x, place.top(), place.width(), place.height()), Qt::AlignVCenter, name);
        x += metrics.horizontalAdvance(name) + 2 * gap;
    }
}

void Chart::paintAxis(QPainter &painter, const QRectF &plot, int step, int most) const {
    const double line = QFontMetricsF(font, painter.device()).lineSpacing();
    for (int number = 0; number <= most; number += step) {
        const double x = plot.left() + plot.width() * number / most;
        painter.setPen(QPen(number == 0 ? ink.ink : ink.hairline, 1));
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
        painter.setPen(ink.ink);
        painter.drawText(QRectF(x - 4 * line, plot.bottom(), 8 * line, 1.4 * line), Qt::AlignCenter,
                         QString::number(number));
    }
}

void Chart::paintBars(QPainter &painter, const QRectF &labels, const QRectF &plot, int most) const {
    const double room = bars.empty() ? 0 : plot.height() / double(bars.size());
    for (size_t i = 0; i < bars.size(); ++i) {
        const double top = plot.top() + room * double(i);
        painter.setPen(ink.ink);
        painter.drawText(QRectF(labels.left(), top, labels.width(), room), Qt::AlignVCenter | Qt::AlignRight,
                         bars[i].label);
        painter.setPen(QPen(ink.bars[bars[i].level].edge, 1));
        painter.setBrush(ink.bars[bars[i].level].fill);
        painter.drawRect(QRectF(plot.left(), top + room * (1 - barWidth) / 2, plot.width() * bars[i].remarks / most,
                                room * barWidth));
    }
}

class ChartView final : public QWidget {
public:
    void take(Chart chart) {
        m_chart = std::move(chart);
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        m_chart.paint(painter, rect());
    }

private:
    Chart m_chart;
};

} // namespace

QWidget *newChartView() {
    return new ChartView;
}

void showInView(QWidget &view, const BatchReport &report, const ChartInk &ink, const QFont &font) {
    static_cast<ChartView &>(view).take(chartOf(report, ink, font));
}

void drawChart(QPainter &painter, const QRectF &target, const BatchReport &report, const ChartInk &ink,
               const QFont &font) {
    const QSizeF size = chartSize(report, font);
    const double scale = std::min(target.width() / size.width(), target.height() / size.height());
    painter.save();
    painter.translate(target.topLeft());
    painter.scale(scale, scale);
    chartOf(report, ink, font).paint(painter, QRectF({}, size));
    painter.restore();
}

QString chartAddress(const BatchReport &report, const ChartInk &ink, const QFont &font) {
    constexpr int sharpness = 2; // pixels of the picture for one of the page
    QImage image(chartSize(report, font) * sharpness, QImage::Format_RGB32);
    QPainter painter(&image);
    drawChart(painter, image.rect(), report, ink, font);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return u"data:image/png;base64,"_s + QString::fromLatin1(png.toBase64());
}

} // namespace batch
