#include "widgets/flexGridColumns.h"
#include "widgets/twips.h"
#include <QHeaderView>
#include <QTableView>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {
constexpr int narrowestColumn = 4;
}

FlexGridColumns::FlexGridColumns(QTableView &view, bool headings)
    : m_view(view)
    , m_headings(headings)
    , m_widths(size_t(view.model()->columnCount())) {
    view.horizontalHeader()->setMinimumSectionSize(narrowestColumn);
}

// Relative to the design font: Chinese characters 12 pixels wide at 96 dpi, digits half as wide.
double FlexGridColumns::fontScale() const {
    constexpr double designWidth = 12, designDpi = 96;
    const double dot = std::max(m_view.logicalDpiX(), 1) / designDpi;
    const QFontMetricsF metrics(m_view.font());
    const double chinese = metrics.horizontalAdvance(u'国') / designWidth;
    const double digits = metrics.horizontalAdvance(u"0123456789"_s) / (5 * designWidth);
    return std::max({1.0, chinese / dot, digits / dot});
}

int FlexGridColumns::toTwips(int pixels) const {
    return qRound(double(pixels) * twipsPerInch / std::max(m_view.logicalDpiX(), 1) / fontScale());
}

int FlexGridColumns::toPixels(int twips) const {
    return qRound(double(twips) * m_view.logicalDpiX() / twipsPerInch * fontScale());
}

void FlexGridColumns::setStretched(int column) {
    m_stretched = column;
    stretch();
}

void FlexGridColumns::stretch() {
    if (m_stretched < 0 || m_view.isColumnHidden(m_stretched))
        return;
    if (isDrawn(m_stretched))
        return;
    Width &width = m_widths[size_t(m_stretched)];
    const int others = m_view.horizontalHeader()->length() - m_view.columnWidth(m_stretched);
    const int least = std::max({toPixels(width.twips), m_view.horizontalHeader()->sectionSizeHint(m_stretched)});
    width.pixels = std::max(least, m_view.viewport()->width() - others);
    m_view.setColumnWidth(m_stretched, width.pixels);
}

bool FlexGridColumns::isDrawn(int column) const {
    const int pixels = m_widths[size_t(column)].pixels;
    return pixels >= 0 && !m_view.isColumnHidden(column) && pixels != m_view.columnWidth(column);
}

QMap<int, int> FlexGridColumns::drawn() const {
    QMap<int, int> drawn;
    for (int column = 0; column < count(); ++column)
        if (isDrawn(column))
            drawn.insert(column, m_view.columnWidth(column));
    return drawn;
}

void FlexGridColumns::setDrawn(const QMap<int, int> &widths) {
    for (auto width = widths.begin(); width != widths.end(); ++width)
        m_view.setColumnWidth(width.key(), std::max(width.value(), narrowestColumn));
}

void FlexGridColumns::setTwips(int column, int twips) {
    if (column < 0 || column >= count())
        return;
    Width &width = m_widths[size_t(column)];
    if (width.twips == std::max(twips, 0))
        return;
    width.twips = std::max(twips, 0);
    if (isDrawn(column) && twips > 0)
        return;
    m_view.setColumnHidden(column, twips <= 0);
    width.pixels = m_view.columnWidth(column);
    fit(column);
}

void FlexGridColumns::fit(int column) {
    Width &width = m_widths[size_t(column)];
    if (width.twips <= 0 || isDrawn(column))
        return;
    const int heading = m_headings ? m_view.horizontalHeader()->sectionSizeHint(column) : 0;
    width.pixels = std::max({toPixels(width.twips), heading, narrowestColumn});
    m_view.setColumnWidth(column, width.pixels);
    stretch();
}

int FlexGridColumns::twips(int column) const {
    if (column < 0 || column >= count() || m_view.isColumnHidden(column))
        return 0;
    return isDrawn(column) ? toTwips(m_view.columnWidth(column)) : m_widths[size_t(column)].twips;
}

void FlexGridColumns::fitAll() {
    for (int column = 0; column < count(); ++column)
        fit(column);
}

} // namespace widgets
