// Corrects the text of a PDF file that Qt wrote. If a font draws several characters with one glyph, Qt names the first
// of them in the font's table, which for many Chinese characters is the radical of the same shape. Text copied from the
// file or searched for in it then differs from the printed text.
#pragma once

#include "platform/result.h"
#include <QFont>
#include <QHash>
#include <QPaintDevice>
#include <QString>
#include <vector>

namespace widgets {

// The characters of the Basic Multilingual Plane that were drawn.
class DrawnCharacters {
public:
    void add(QStringView text);
    bool contains(char16_t character) const { return !m_drawn.empty() && m_drawn[character]; }
    QString all() const;

private:
    std::vector<bool> m_drawn; // allocated with the first text
};

// Maps each character that was not drawn, but whose glyph was drawn for another character, to the drawn character.
using SameGlyph = QHash<char16_t, char16_t>;
void addSameGlyphs(SameGlyph &found, const DrawnCharacters &drawn, const QFont &font, const QPaintDevice *device);

// Renames the glyphs in the file to the characters that were drawn, by appending an incremental update. A file that was
// not written by Qt, or that cannot take the whole update, is left unchanged and returns a failure.
platform::Status nameDrawnCharacters(const QString &path, const SameGlyph &names);

} // namespace widgets
