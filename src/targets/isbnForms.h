// The spellings of an ISBN under which catalogues may have it.
#pragma once

#include <QStringList>
#include <QStringView>

namespace targets {

// Returns the 13-digit and the ten-digit form, each without hyphens and, if the ISBN is in a range of its agency, with
// them. For an ISBN with a wrong check digit, returns it without hyphens and as written; for a text that is not an
// ISBN, the text; for an empty text, nothing.
QStringList isbnForms(QStringView text);

} // namespace targets
