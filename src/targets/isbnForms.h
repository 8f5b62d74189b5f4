// The spellings of an ISBN under which catalogues may have it.
#pragma once

#include <QStringList>
#include <QStringView>

namespace targets {

// Returns the 13-digit and the ten-digit form, each without hyphens and, if the ISBN is in a range of its agency, with
// them. An ISBN with a wrong check digit has the forms without hyphens and as written. A text that is no ISBN is the
// only form of itself; an empty one has none.
QStringList isbnForms(QStringView text);

} // namespace targets
