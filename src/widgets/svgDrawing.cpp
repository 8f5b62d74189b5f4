#include "widgets/lineDrawing.h"
#include "widgets/styleTokens.h"
#include <QFile>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

// Exchanges the colours of the light scheme for those of the palette.
QByteArray dyed(QByteArray drawing, const QPalette &palette, bool faint) {
    for (const ColourToken &token : colourTokens) {
        const QByteArray drawn = QColor(token.light).name().toUpper().toLatin1();
        drawing.replace(drawn, colour(faint ? Colour::Edge : token.name, palette).name().toLatin1());
    }
    return drawing;
}

} // namespace

void paintLineDrawing(QPainter &painter, const QRect &place, const QString &name, const QPalette &palette, bool faint) {
    QFile file(u":/lines/"_s + name + u".svg"_s);
    if (file.open(QIODevice::ReadOnly))
        QSvgRenderer(dyed(file.readAll(), palette, faint)).render(&painter, place);
}

} // namespace widgets
