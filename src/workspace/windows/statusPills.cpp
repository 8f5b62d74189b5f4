#include "workspace/windows/statusPills.h"
#include "widgets/stylePaint.h"
#include "workspace/statusFacts.h"
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::Surface;

namespace workspace {

namespace {
constexpr QStringView keyHints = u"F3 查找　Ctrl+G 记录号　F1 手册";
}

void StatusPills::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QFontMetrics metrics = fontMetrics();
    const int padding = widgets::space(widgets::Space::Small, metrics), gap = padding;
    const int height = metrics.height() + padding / 2, top = (this->height() - height) / 2;
    int left = 0;
    const QStringList facts = QLabel::text().split(statusSeparator, Qt::SkipEmptyParts);
    for (const QString &fact : facts) {
        const int room = width() - left - 2 * padding;
        if (room <= 2 * padding)
            return;
        const int words = std::min(metrics.horizontalAdvance(fact), room);
        const Surface surface = fact.startsWith(u'⚠') ? Surface::Warning : Surface::Fact;
        const QRect pill(left, top, words + 2 * padding, height);
        widgets::paintSurface(&painter, pill, surface, palette());
        painter.setPen(widgets::colour(widgets::look(surface).ink, palette()));
        painter.drawText(pill.adjusted(padding, 0, -padding, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         words < room ? fact : metrics.elidedText(fact, Qt::ElideMiddle, words));
        left = pill.right() + 1 + gap;
    }
    if (left + metrics.horizontalAdvance(keyHints.toString()) <= width()) {
        painter.setPen(widgets::colour(widgets::Colour::FaintInk, palette()));
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignRight, keyHints.toString());
    }
}

} // namespace workspace
