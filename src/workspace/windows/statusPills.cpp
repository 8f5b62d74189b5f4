#include "workspace/windows/statusPills.h"
#include "widgets/stylePaint.h"
#include "workspace/statusFacts.h"
#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;
using widgets::Surface;

namespace workspace {

namespace {
constexpr QStringView keyHints = u"F3 查找　Ctrl+G 记录号　Ctrl+Tab 换栏　F1 手册";

// Returns the widths of the texts, the widest ones shortened until the sum fits the room.
std::vector<int> sharedWidths(const QStringList &texts, const QFontMetrics &metrics, int room) {
    std::vector<int> widths;
    for (const QString &text : texts)
        widths.push_back(metrics.horizontalAdvance(text));
    if (!widths.empty() && room > 0)
        for (int excess = std::accumulate(widths.begin(), widths.end(), 0) - room; excess > 0; --excess)
            --*std::ranges::max_element(widths);
    return widths;
}
} // namespace

void StatusPills::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QFontMetrics metrics = fontMetrics();
    const int padding = widgets::space(widgets::Space::Small, metrics), gap = padding;
    const int height = metrics.height() + padding / 2, top = (this->height() - height) / 2;
    int left = 0;
    const QStringList facts = QLabel::text().split(statusSeparator, Qt::SkipEmptyParts);
    const int around = 2 * padding + gap;
    const std::vector<int> widths = sharedWidths(facts, metrics, width() + gap - around * int(facts.size()));
    for (qsizetype at = 0; at < facts.size(); ++at) {
        const QString &fact = facts[at];
        const int words = widths[size_t(at)];
        const Surface surface = fact.startsWith(u'⚠') ? Surface::Warning : Surface::Fact;
        const QRect pill(left, top, words + 2 * padding, height);
        widgets::paintSurface(&painter, pill, surface, palette());
        painter.setPen(widgets::colour(widgets::look(surface).ink, palette()));
        painter.drawText(pill.adjusted(padding, 0, -padding, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         words < metrics.horizontalAdvance(fact) ? metrics.elidedText(fact, Qt::ElideMiddle, words)
                                                                 : fact);
        left = pill.right() + 1 + gap;
    }
    if (left + metrics.horizontalAdvance(keyHints.toString()) <= width()) {
        painter.setPen(widgets::colour(widgets::Colour::FaintInk, palette()));
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignRight, keyHints.toString());
    }
}

} // namespace workspace
