#include "widgets/spacedLines.h"
#include <QTextBlock>
#include <QTextLayout>

namespace widgets {

SpacedLines::SpacedLines(QTextDocument *document, double factor)
    : QPlainTextDocumentLayout(document)
    , m_factor(factor) {}

// The toolkit requests this rectangle before it paints the block, scrolls to it or searches for a place in it.
QRectF SpacedLines::blockBoundingRect(const QTextBlock &block) const {
    QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block); // lays the lines out if that is due
    if (!block.isValid() || !block.isVisible())
        return rect;
    const QTextLayout *layout = block.layout();
    double top = 0;
    for (int i = 0; i < layout->lineCount(); ++i) {
        QTextLine line = layout->lineAt(i);
        line.setPosition({line.x(), top});
        top += line.height() * m_factor;
    }
    const bool isLast = !block.next().isValid();
    rect.setHeight(top + (isLast ? document()->documentMargin() : 0));
    return rect;
}

} // namespace widgets
