#include "widgets/reportFace.h"
#include "platform/desktop/faces.h"
#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

constexpr float unknown = -1;
constexpr float neverQuick = std::numeric_limits<float>::infinity();

// Returns the start of a text: laying out a million characters takes a minute. Characters that draw nothing become
// blanks, since Qt would look for each of them in all installed fonts.
QString printable(const QString &text) {
    constexpr qsizetype longest = 2000;
    QString shown = text.left(longest);
    if (text.size() > longest)
        shown += u'…';
    shown.replace(u"\r\n"_s, u"\n"_s);
    for (QChar &character : shown) {
        if (character.category() == QChar::Other_Control && character != u'\n')
            character = u' ';
    }
    return shown;
}

// Returns whether the character has the same width alone as in a text, apart from kerning. Other characters need a
// layout.
bool standsAlone(QChar character) {
    constexpr auto plain = std::to_array({QChar::Script_Common, QChar::Script_Latin, QChar::Script_Han});
    return std::ranges::find(plain, character.script()) != plain.end() && character.isPrint() &&
           character != QChar::LineSeparator && character != QChar::ParagraphSeparator;
}

} // namespace

QFont reportFont(double points, QFont::Weight weight) {
    QFont font = QApplication::font();
    const QStringList faces = platform::songFaces();
    const auto found = std::ranges::find_if(faces, [](const QString &face) { return QFontDatabase::hasFamily(face); });
    if (found != faces.end())
        font.setFamilies({*found});
    font.setPointSizeF(points);
    font.setWeight(weight);
    // Shaping substitutes glyphs that a PDF reader cannot map back to characters: a call number would lose its digits.
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

ReportFace::ReportFace(const QFont &font, const QPaintDevice *device)
    : m_font(font)
    , m_device(device)
    , m_metrics(font, device) {
    // Chinese characters may come from another font with other heights; a line must fit both.
    QTextLayout both(u"书Ag"_s, font, device);
    both.beginLayout();
    const QTextLine line = both.createLine();
    both.endLayout();
    m_ascent = line.ascent();
    lineHeight = line.height() + std::max(line.leading(), 0.0);
}

float ReportFace::widthOf(QChar character) {
    if (m_widths.empty())
        m_widths.resize(0x10000, unknown);
    float &width = m_widths[character.unicode()];
    if (width == unknown)
        width = standsAlone(character) ? float(m_metrics.horizontalAdvance(QString(character))) : neverQuick;
    return width;
}

bool ReportFace::surelyOneLine(QStringView text, double width) {
    constexpr double room = 0.9; // kerning may widen a text, but never by that much
    double left = width * room;
    for (const QChar character : text) {
        left -= double(widthOf(character));
        if (left < 0)
            return false;
    }
    return true;
}

QStringList ReportFace::wrapped(const QString &whole, double width) const {
    const QString text = printable(whole);
    const bool oneLine = !text.contains(u'\n') && m_metrics.horizontalAdvance(text) <= width;
    if (oneLine)
        return {text};
    QString content = text;
    content.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(content, m_font, m_device);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.append(content.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator));
    }
    layout.endLayout();
    return lines;
}

void ReportFace::draw(QPainter &painter, double left, double top, double width, Qt::Alignment alignment,
                      const QString &line) const {
    const double spare = width - m_metrics.horizontalAdvance(line);
    const double shift = alignment & Qt::AlignRight ? spare : alignment & Qt::AlignHCenter ? spare / 2 : 0;
    m_drawn.add(line);
    painter.setFont(m_font);
    painter.drawText(QPointF(left + shift, top + m_ascent), line);
}

} // namespace widgets
