// Paints the drawings of data/pictures/lines in the colours of a palette: from their SVG files by Qt Svg
// (svgDrawing.cpp), or, in a build without Qt Svg, from the recordings that tools/recordDrawings made of them
// (recordedDrawing.cpp).
#pragma once

#include <QPalette>
#include <QString>

class QPainter;
class QRect;

namespace widgets {

constexpr int drawingSide = 24; // of a drawing and of its recording, in units

// Paints nothing if there is no drawing of this name.
void paintLineDrawing(QPainter &painter, const QRect &place, const QString &name, const QPalette &palette, bool faint);

// Returns the name of the file with the recording of a drawing in these colours.
QString recordingName(const QString &name, const QPalette &palette, bool faint);

} // namespace widgets
