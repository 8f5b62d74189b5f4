// How a page of the handbook looks: Markdown gives a document its structure only. Room around headings and lines as
// Chinese text wants it, ruled tables, names at the headings that links lead to, pictures no wider than the page.
#pragma once

#include <QImage>
#include <QPalette>
#include <QTextDocument>

namespace handbook {

// Once for each time that the document was filled.
void dress(QTextDocument &document, const QPalette &palette);

// The names of the pictures, as the page spells them.
QStringList picturesIn(const QTextDocument &document);

// The picture for a page of that width in pixels that hold `ratio` of the device's each; never larger than it is.
QImage fitted(const QImage &picture, int width, double ratio);

} // namespace handbook
