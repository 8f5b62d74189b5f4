#include "batch/windows/ruleChart.h"
#include "support/qtPrinters.h"
#include "widgets/styleTokens.h"
#include <QApplication>
#include <QImage>
#include <QPainter>

using namespace batch;
using schema::Level;

TEST(PaintedChart, HasBarsInTheInksOfItsScheme) {
    constexpr int enlarged = 4;
    BatchReport report;
    report.rules = {{.label = u"多"_s, .remarks = 8}, {.label = u"少"_s, .level = Level::Warning, .remarks = 4}};
    const QFont font = QApplication::font();
    for (const widgets::Scheme scheme : {widgets::Scheme::Light, widgets::Scheme::Dark}) {
        const ChartInk ink = schemeInk(widgets::schemePalette(scheme));
        QImage image(chartSize(report, font) * enlarged, QImage::Format_RGB32);
        QPainter painter(&image);
        drawChart(painter, image.rect(), report, ink, font);
        painter.end();
        const auto pixels = [&image](const QColor &wanted) {
            qint64 count = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    count += image.pixelColor(x, y) == wanted;
            return count;
        };
        EXPECT_EQ(image.pixelColor(0, 0), ink.background);
        EXPECT_TRUE(pixels(ink.ink) > 0 && pixels(ink.hairline) > 0);
        const double many = double(pixels(ink.bars[0].fill.color())), few = double(pixels(ink.bars[1].fill.color()));
        EXPECT_NEAR(many / few, 2, 0.2) << "a bar is as long as its number is high";
    }
}
