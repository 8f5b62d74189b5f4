// Converts texts to the form that catalogues use: widths, blanks, brackets, prices, ISBNs.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace tasks {

// Returns the tidied text, or std::nullopt if there is nothing to tidy.
using Tidying = std::optional<QString> (*)(QStringView text);

// Returns the function for the key of a choice of Action::TidyText; null if there is none.
Tidying tidyingOf(QStringView key);

bool isHan(char32_t c);

} // namespace tasks
