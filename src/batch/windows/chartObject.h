// The chart of a report as an object in a text document, drawn at the resolution of the paper.
#pragma once

#include "batch/batchReport.h"
#include <QFont>
#include <QTextObjectInterface>

namespace batch {

class ChartObject final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
public:
    // Replaces the only picture in the document, which must outlive the object. `width` is in layout pixels.
    ChartObject(QTextDocument &document, BatchReport report, const QFont &font, int width);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    BatchReport m_report;
    QFont m_font;
    int m_width;
};

} // namespace batch
