// The text of a PDF file that the toolkit wrote. Where a font draws several characters with one glyph, the toolkit
// names the first of them in the font's table, which for many Chinese characters is the radical of the same look: what
// is copied out of the file or searched for in it is then another text than the one that was printed.
#pragma once

#include "platform/result.h"
#include <QFont>
#include <QHash>
#include <QPaintDevice>
#include <QString>
#include <vector>

namespace widgets {

// The characters (of the basic plane) that were drawn.
class DrawnCharacters {
public:
    void add(QStringView text);
    bool contains(char16_t character) const { return !m_drawn.empty() && m_drawn[character]; }
    QString all() const;

private:
    std::vector<bool> m_drawn; // made at the first text
};

// For each character that was not drawn but has the glyph of one that was: the latter.
using SameGlyph = QHash<char16_t, char16_t>;
void addSameGlyphs(SameGlyph &found, const DrawnCharacters &drawn, const QFont &font, const QPaintDevice *device);

// Gives the glyphs in the file the names of the characters that were drawn. They are appended as an update of the file;
// a file that is no PDF of the toolkit's stays as it is, and one where there is no room for them as well.
platform::Status nameDrawnCharacters(const QString &path, const SameGlyph &names);

} // namespace widgets
