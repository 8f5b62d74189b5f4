#include "batch/windows/chartObject.h"
#include "batch/windows/ruleChart.h"
#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QTextCursor>
#include <QTextDocument>
#include <utility>

namespace batch {

ChartObject::ChartObject(QTextDocument &document, BatchReport report, const QFont &font, int width)
    : m_report(std::move(report))
    , m_font(font)
    , m_width(width) {
    constexpr int type = QTextFormat::UserObject;
    document.documentLayout()->registerHandler(type, this);
    QTextCursor place = document.find(QString(QChar::ObjectReplacementCharacter));
    QTextCharFormat format;
    format.setObjectType(type);
    place.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

QSizeF ChartObject::intrinsicSize(QTextDocument *document, int, const QTextFormat &) {
    constexpr double layoutDpi = 96;
    const QPaintDevice *device = document->documentLayout()->paintDevice();
    const double scale = device ? device->logicalDpiX() / layoutDpi : 1;
    const QSizeF size = chartSize(m_report, m_font);
    return size * (m_width * scale / size.width());
}

void ChartObject::drawObject(QPainter *painter, const QRectF &rect, QTextDocument *, int, const QTextFormat &) {
    drawChart(*painter, rect, m_report, paperInk(), m_font);
}

} // namespace batch
