#include "widgets/stylePaint.h"
#include <QPolygonF>
#include <algorithm>
#include <vector>

namespace widgets {

Brushwork::Brushwork(QPainter *painter)
    : m_painter(painter) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
}

void paintPanel(QPainter *painter, const QRect &rect, const QColor &fill, const QColor &edge, double radius) {
    const Brushwork brush(painter);
    painter->setBrush(fill);
    if (edge == fill) {
        painter->setPen(Qt::NoPen);
        painter->drawRoundedRect(rect, radius, radius);
        return;
    }
    painter->setPen(edge);
    painter->drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

void paintSurface(QPainter *painter, const QRect &rect, Surface surface, const QPalette &palette, double radius) {
    const SurfaceLook &looks = look(surface);
    paintPanel(painter, rect, colour(looks.fill, palette), colour(looks.edge, palette), radius);
}

void paintFocusRing(QPainter *painter, const QRect &rect, const QPalette &palette, double radius) {
    if (rect.isEmpty())
        return;
    const Brushwork brush(painter);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(colour(Colour::Accent, palette), focusWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const QRectF ring = QRectF(rect).adjusted(focusWidth / 2.0, focusWidth / 2.0, -focusWidth / 2.0, -focusWidth / 2.0);
    if (radius > 0)
        painter->drawRoundedRect(ring, radius, radius);
    else
        painter->drawRect(ring);
}

namespace {

// Points of a sign in a square from -1 to 1.
std::vector<QPolygonF> linesOf(Sign sign) {
    switch (sign) {
    case Sign::Up:
        return {QPolygonF({{-1, 0.5}, {0, -0.5}, {1, 0.5}})};
    case Sign::Down:
        return {QPolygonF({{-1, -0.5}, {0, 0.5}, {1, -0.5}})};
    case Sign::Left:
        return {QPolygonF({{0.5, -1}, {-0.5, 0}, {0.5, 1}})};
    case Sign::Right:
        return {QPolygonF({{-0.5, -1}, {0.5, 0}, {-0.5, 1}})};
    case Sign::Tick:
        return {QPolygonF({{-1, 0}, {-0.3, 0.7}, {1, -0.7}})};
    case Sign::Dash:
        return {QPolygonF{QPointF(-0.9, 0), QPointF(0.9, 0)}};
    case Sign::Cross:
        return {QPolygonF{QPointF(-0.8, -0.8), QPointF(0.8, 0.8)}, QPolygonF{QPointF(-0.8, 0.8), QPointF(0.8, -0.8)}};
    }
    return {};
}

} // namespace

void paintSign(QPainter *painter, const QRect &rect, Sign sign, const QColor &ink) {
    constexpr double share = 0.28, lineShare = 0.13, thinnest = 1.4;
    const int side = std::min(rect.width(), rect.height());
    const Brushwork brush(painter);
    painter->translate(QRectF(rect).center());
    painter->scale(side * share, side * share);
    QPen pen(ink, std::max(side * lineShare, thinnest) / (side * share), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter->setPen(pen);
    for (const QPolygonF &line : linesOf(sign))
        painter->drawPolyline(line);
}

void paintMark(QPainter *painter, const QRect &rect, Mark mark, const QPalette &palette) {
    const Brushwork brush(painter);
    const double side = std::min(rect.width(), rect.height());
    painter->translate(QRectF(rect).center());
    painter->scale(side / 2, side / 2); // from -1 to 1
    painter->setPen(Qt::NoPen);
    const QPen line(colour(Colour::Base, palette), 0.28, Qt::SolidLine, Qt::RoundCap);
    switch (mark) {
    case Mark::Error:
        painter->setBrush(colour(Colour::ErrorInk, palette));
        painter->drawEllipse(QPointF(), 0.95, 0.95);
        painter->setPen(line);
        painter->drawLine(QPointF(-0.36, -0.36), QPointF(0.36, 0.36));
        painter->drawLine(QPointF(-0.36, 0.36), QPointF(0.36, -0.36));
        return;
    case Mark::Warning:
        painter->setBrush(colour(Colour::WarningInk, palette));
        painter->drawPolygon(QPolygonF({{0, -0.9}, {1, 0.85}, {-1, 0.85}}));
        painter->setPen(line);
        painter->drawLine(QPointF(0, -0.25), QPointF(0, 0.2));
        painter->drawPoint(QPointF(0, 0.58));
        return;
    case Mark::Hint:
        painter->setBrush(colour(Colour::Accent, palette));
        painter->drawPolygon(QPolygonF({{0, -0.8}, {0.8, 0}, {0, 0.8}, {-0.8, 0}}));
        return;
    }
}

} // namespace widgets
