// Text as a form of record files can hold it.
#pragma once

#include "tidy/recordForms.h"
#include <QList>

namespace tidy {

// Changes the text to what the form can hold. For GBK a letter and its combining marks are put together where the form
// has the letter as a whole, blanks of other widths become plain ones, and what cannot be seen is left out. The rest
// becomes "?", and is handed back as it was met.
QList<char32_t> fitText(TargetForm form, QString &text);

} // namespace tidy
