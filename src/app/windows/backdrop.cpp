#include "app/windows/backdrop.h"
#include <QPainter>
#include <QRandomGenerator>
#include <array>

namespace app {

namespace {

constexpr auto spineColours =
    std::to_array<QRgb>({0x7a2e2e, 0x2f4f7f, 0x3f6b52, 0x8a6a33, 0x50406e, 0x26616b, 0x8c4a33, 0x46566b});
constexpr quint32 arrangement = 936; // seed; the same books on every screen

void paintSky(QPainter &painter, const QRectF &area) {
    QLinearGradient dusk(area.topLeft(), area.bottomLeft());
    dusk.setColorAt(0, QColor(0x12, 0x26, 0x3f));
    dusk.setColorAt(0.6, QColor(0x25, 0x49, 0x66));
    dusk.setColorAt(1, QColor(0x3a, 0x62, 0x78));
    painter.fillRect(area, dusk);
    QRadialGradient lamp(QPointF(area.width() / 2, area.height() * 0.36), area.width() * 0.4);
    lamp.setColorAt(0, QColor(255, 240, 205, 70));
    lamp.setColorAt(1, QColor(255, 240, 205, 0));
    painter.fillRect(area, lamp);
}

// Paints one spine with a light edge, two bands and a label.
void paintBook(QPainter &painter, const QRectF &book, QColor colour) {
    QLinearGradient round(book.topLeft(), book.topRight());
    round.setColorAt(0, colour.darker(135));
    round.setColorAt(0.3, colour.lighter(115));
    round.setColorAt(1, colour.darker(150));
    painter.setBrush(round);
    painter.drawRoundedRect(book, book.width() / 12, book.width() / 12);
    painter.setBrush(QColor(238, 220, 170, 150));
    const double band = book.height() / 60;
    painter.drawRect(QRectF(book.left(), book.top() + book.height() * 0.12, book.width(), band));
    painter.drawRect(QRectF(book.left(), book.top() + book.height() * 0.82, book.width(), band));
    painter.setBrush(QColor(245, 240, 226, 190));
    painter.drawRect(QRectF(book.left() + book.width() * 0.2, book.top() + book.height() * 0.86, book.width() * 0.6,
                            book.height() * 0.09));
}

void paintShelf(QPainter &painter, const QRectF &area) {
    QRandomGenerator chance(arrangement);
    const double unit = area.height() / 100;
    for (double x = -unit; x < area.width();) {
        const double width = unit * (3 + 3.5 * chance.generateDouble());
        const double height = unit * (22 + 13 * chance.generateDouble());
        const QColor colour(spineColours[chance.bounded(quint32(spineColours.size()))]);
        paintBook(painter, QRectF(x, area.height() - height, width, height), colour);
        x += width + unit * 0.15;
    }
}

} // namespace

Backdrop::Backdrop(const QString &objectName, QWidget *parent)
    : QWidget(parent) {
    setObjectName(objectName);
}

void Backdrop::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintSky(painter, rect());
    paintShelf(painter, rect());
}

} // namespace app
