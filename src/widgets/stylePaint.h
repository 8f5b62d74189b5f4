// Shapes that are shared by the style and by widgets that paint themselves.
#pragma once

#include "widgets/styleTokens.h"
#include <QPainter>

namespace widgets {

// Saves the painter, makes it antialiased, and restores it at the end.
class Brushwork {
public:
    explicit Brushwork(QPainter *painter);
    ~Brushwork() { m_painter->restore(); }
    Q_DISABLE_COPY_MOVE(Brushwork)

private:
    QPainter *m_painter;
};

// A rounded rectangle with its outline inside the rectangle. An outline of the colour of the fill is not drawn.
void paintPanel(QPainter *painter, const QRect &rect, const QColor &fill, const QColor &edge,
                double radius = cornerRadius);
void paintSurface(QPainter *painter, const QRect &rect, Surface surface, const QPalette &palette,
                  double radius = cornerRadius);
// Paints the mark of the control that has the focus, inside the rectangle; the same for all controls.
void paintFocusRing(QPainter *painter, const QRect &rect, const QPalette &palette, double radius = cornerRadius);

enum class Sign { Up, Down, Left, Right, Tick, Dash, Cross };
// A sign of lines, centred in the rectangle.
void paintSign(QPainter *painter, const QRect &rect, Sign sign, const QColor &ink);

// The mark of a cell or a text. The marks differ in shape as well as in colour: a disc with a cross, a triangle, a
// square standing on a corner.
enum class Mark { Error, Warning, Hint };
// Fills the largest square in the middle of the rectangle.
void paintMark(QPainter *painter, const QRect &rect, Mark mark, const QPalette &palette);

} // namespace widgets
