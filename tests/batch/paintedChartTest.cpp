#include "batch/windows/ruleChart.h"
#include "support/qtPrinters.h"
#include "widgets/styleTokens.h"

using namespace batch;
using schema::Level;

namespace {

BatchReport reportOf(int most) {
    BatchReport report;
    report.rules = {{.label = u"多"_s, .remarks = most},
                    {.label = u"少少少少"_s, .level = Level::Warning, .remarks = 4}};
    return report;
}

// Returns where the image has this colour, within some of its lines.
QRect placeOf(const QImage &image, const QColor &colour, int top, int bottom) {
    QRect place;
    for (int y = top; y < bottom; ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour)
                place |= QRect(x, y, 1, 1);
    return place;
}

// Returns the number of lines that cross a line of the image.
int linesAt(const QImage &image, int y) {
    int lines = 0;
    for (int x = 1; x < image.width(); ++x)
        lines += image.pixel(x, y) != image.pixel(0, y) && image.pixel(x - 1, y) == image.pixel(0, y);
    return lines;
}

} // namespace

TEST(PaintedChart, HasBarsOnAScaleInTheInksOfItsScheme) {
    constexpr int enlarged = 4;
    const QFont font = QApplication::font();
    const int line = QFontMetrics(font).lineSpacing() * enlarged;
    for (const widgets::Scheme scheme : {widgets::Scheme::Light, widgets::Scheme::Dark})
        for (const auto &[most, ticks] : {std::pair(4, 5), {7, 5}, {25, 6}, {30, 4}}) {
            SCOPED_TRACE(most);
            const BatchReport report = reportOf(most);
            const ChartInk ink = schemeInk(widgets::schemePalette(scheme));
            const QColor first = ink.bars[0].fill.color(), second = ink.bars[1].fill.color();
            QImage image(chartSize(report, font) * enlarged, QImage::Format_RGB32);
            QPainter painter(&image);
            drawChart(painter, image.rect(), report, ink, font);
            painter.end();
            EXPECT_EQ(image.pixelColor(0, 0), ink.background);
            const int top = 3 * line / 2, bottom = image.height() - top;
            EXPECT_EQ(linesAt(image, top + line / 4), ticks) << "with the axis";
            const QRect many = placeOf(image, first, top, bottom), few = placeOf(image, second, top, bottom);
            EXPECT_TRUE(many.bottom() < few.top() && qAbs(many.left() - few.left()) < 2 * enlarged);
            EXPECT_NEAR(double(many.width()) / few.width(), most / 4.0, most / 40.0);
            EXPECT_NEAR(double(many.height()) / (few.top() - many.top()), 0.62, 0.05) << "of the room for a bar";
            const QRect labels =
                placeOf(image.copy(0, 0, few.left() - line / 4, bottom), ink.ink, few.top(), few.bottom());
            EXPECT_TRUE(labels.left() < 2 * line && labels.width() > 4 * line) << "the longest one has room";
            const QRect scale = placeOf(image, ink.ink, bottom + line / 4, image.height());
            EXPECT_TRUE(qAbs(scale.left() - few.left()) < line && scale.right() > image.width() - 3 * line / 2);

            const QRect legend = placeOf(image, ink.ink, 0, line);
            const QRect squares[] = {placeOf(image, first, 0, line), placeOf(image, second, 0, line),
                                     placeOf(image, ink.bars[2].fill.color(), 0, line)};
            EXPECT_TRUE(squares[0].right() < squares[1].left() && squares[1].right() < squares[2].left());
            EXPECT_TRUE(squares[2].right() < legend.right() && squares[0].right() < legend.left());
            EXPECT_NEAR(squares[0].left() + legend.right(), image.width(), line) << "in the middle";
        }
}

TEST(PaintedChart, IsTheSameInAWindowAndOnAPage) {
    const BatchReport report = reportOf(7);
    const QFont font = QApplication::font();
    const ChartInk ink = schemeInk(QApplication::palette());
    const std::unique_ptr<QWidget> view(newChartView());
    view->resize(chartSize(report, font));
    showInView(*view, report, ink, font);
    const auto address = chartAddress(report, ink, font);
    const QImage page = QImage::fromData(QByteArray::fromBase64(address.section(u',', 1).toLatin1()));
    const QImage window = view->grab().toImage();
    ASSERT_EQ(page.size(), 2 * window.size());
    const int line = QFontMetrics(font).lineSpacing();
    const QRect bar = placeOf(window, ink.bars[0].fill.color(), 2 * line, window.height());
    const QRect onPage = placeOf(page, ink.bars[0].fill.color(), 4 * line, page.height());
    EXPECT_TRUE(bar.width() > window.width() / 2 && qAbs(onPage.width() - 2 * bar.width()) < 4);
}
