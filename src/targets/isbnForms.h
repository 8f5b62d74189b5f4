// The spellings of an ISBN under which catalogues may have it.
#pragma once

#include <QStringList>
#include <QStringView>

namespace targets {

// Returns the 13-digit and the ten-digit form, each without hyphens and, if the places of the hyphens are known, with
// them: from the text, or for ISBNs of China, whose ranges of publishers are fixed. An ISBN with a wrong check digit is
// not converted to the other form. A text that is no ISBN is the only form of itself; an empty one has none.
QStringList isbnForms(QStringView text);

} // namespace targets
