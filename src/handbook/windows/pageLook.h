// The appearance of a handbook page, since Markdown defines only its structure: the spacing of headings and lines for
// Chinese text, ruled tables, anchors at the headings for links, pictures no wider than the page.
#pragma once

#include <QImage>
#include <QPalette>
#include <QTextDocument>

namespace handbook {

// Must be called once each time the document was filled.
void dress(QTextDocument &document, const QPalette &palette);

// Returns the names of the pictures, as spelled in the page.
QStringList picturesIn(const QTextDocument &document);

// Returns the picture for a page of `width` pixels with `ratio` device pixels each; never enlarged.
QImage fitted(const QImage &picture, int width, double ratio);

} // namespace handbook
