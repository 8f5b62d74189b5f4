// A font measured for the device that a report is printed on: wraps texts into lines and draws them.
#pragma once

#include "widgets/pdfText.h"
#include <QFont>
#include <QFontMetricsF>
#include <QStringList>
#include <vector>

class QPainter;

namespace widgets {

// Returns a Song-style font if one is installed, else the program's font.
QFont reportFont(double points, QFont::Weight weight = QFont::Normal);

class ReportFace {
public:
    ReportFace(const QFont &font, const QPaintDevice *device);

    // Wraps a text to the width of its column. A text is cut off after 2,000 characters.
    QStringList wrapped(const QString &whole, double width) const;
    // A fast test without layout: returns true only if wrapped() returns one line.
    bool surelyOneLine(QStringView text, double width);
    // Draws a line with its base line at the same height for all scripts, so that the cells of a row align.
    void draw(QPainter &painter, double left, double top, double width, Qt::Alignment alignment,
              const QString &line) const;

    // Adds the drawn characters that Qt's PDF would name as other characters.
    void addSameGlyphs(SameGlyph &found) const { widgets::addSameGlyphs(found, m_drawn, m_font, m_device); }

    double lineHeight = 0;

private:
    float widthOf(QChar character);

    QFont m_font;
    const QPaintDevice *m_device;
    QFontMetricsF m_metrics;
    double m_ascent = 0;
    mutable DrawnCharacters m_drawn;
    std::vector<float> m_widths; // of each character measured so far; index is the character
};

} // namespace widgets
