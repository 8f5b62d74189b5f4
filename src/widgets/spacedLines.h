// The layout of a QPlainTextEdit whose lines are further apart than those of the font. The toolkit's own layout ignores
// the line height of a block's format.
#pragma once

#include <QPlainTextDocumentLayout>

namespace widgets {

class SpacedLines final : public QPlainTextDocumentLayout {
    Q_OBJECT

public:
    // `factor`: the distance from the top of a line to that of the next, in heights of the line.
    SpacedLines(QTextDocument *document, double factor);

    QRectF blockBoundingRect(const QTextBlock &block) const override;

private:
    double m_factor;
};

} // namespace widgets
