// Converts text to what a form of record files can hold.
#pragma once

#include "marc/recordForm.h"
#include <QList>

namespace marc {

// Changes the text to what the form can hold. For GBK a letter and its combining marks are composed if the form has the
// composed letter, blanks of other widths become plain blanks, and invisible characters are removed. All other
// characters become "?" and are returned in the order of their occurrence.
QList<char32_t> fitText(TargetForm form, QString &text);

} // namespace marc
