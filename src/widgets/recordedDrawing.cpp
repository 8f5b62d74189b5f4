#include "widgets/lineDrawing.h"
#include <QFile>
#include <QPainter>
#include <QPicture>

using namespace Qt::StringLiterals;

namespace widgets {

void paintLineDrawing(QPainter &painter, const QRect &place, const QString &name, const QPalette &palette, bool faint) {
    QFile file(u":/lines/"_s + recordingName(name, palette, faint));
    QPicture picture;
    if (!file.open(QIODevice::ReadOnly) || !picture.load(&file))
        return;
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(double(place.width()) / drawingSide, double(place.height()) / drawingSide);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPicture(0, 0, picture);
    painter.restore();
}

} // namespace widgets
