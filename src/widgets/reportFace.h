// What a font measures on the device that a report is printed on: lines of a column, and their drawing.
#pragma once

#include "widgets/pdfText.h"
#include <QFont>
#include <QFontMetricsF>
#include <QStringList>
#include <vector>

class QPainter;

namespace widgets {

// A Song-style face where the machine has one, else the program's own.
QFont reportFont(double points, QFont::Weight weight = QFont::Normal);

class ReportFace {
public:
    ReportFace(const QFont &font, const QPaintDevice *device);

    // The lines of a text as wide as its column. Of a text longer than 2,000 characters the rest is left out.
    QStringList wrapped(const QString &whole, double width) const;
    // Quickly, without laying it out: yes only where wrapped() makes one line of it.
    bool surelyOneLine(QStringView text, double width);
    // On a common base line, so that the cells of a row stand level whatever their script.
    void draw(QPainter &painter, double left, double top, double width, Qt::Alignment alignment,
              const QString &line) const;

    // What it has drawn that the toolkit's PDF would call by another name.
    void addSameGlyphs(SameGlyph &found) const { widgets::addSameGlyphs(found, m_drawn, m_font, m_device); }

    double lineHeight = 0;

private:
    float widthOf(QChar character);

    QFont m_font;
    const QPaintDevice *m_device;
    QFontMetricsF m_metrics;
    double m_ascent = 0;
    mutable DrawnCharacters m_drawn;
    std::vector<float> m_widths; // of each character that was met
};

} // namespace widgets
