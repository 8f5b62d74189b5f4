#include "batch/windows/ruleChart.h"
#include "widgets/styleTokens.h"
#include <QFontMetrics>
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::Colour;

namespace batch {

namespace {

constexpr int longestLabel = 14;   // characters
constexpr int widthInLines = 44;   // of the chart
constexpr double barInLines = 1.6; // height of a bar with its gap
constexpr double frameInLines = 4; // height of legend and margins

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

QSize chartSize(const BatchReport &report, const QFont &font) {
    const int line = QFontMetrics(font).lineSpacing();
    const size_t bars = std::min(report.rules.size(), mostFrequentShown);
    return QSizeF(widthInLines * line, (double(bars) * barInLines + frameInLines) * line).toSize();
}

// The number is part of the label: a stacked series would also write the zeros of the other levels.
QString labelOf(const RuleEntry &entry) {
    const QString name = entry.label.size() > longestLabel ? entry.label.first(longestLabel - 1) + u'…' : entry.label;
    return name + u"　"_s + QString::number(entry.remarks);
}

} // namespace batch
