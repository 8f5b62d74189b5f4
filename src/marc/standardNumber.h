// ISBN and ISSN as written in catalogues: with hyphens, with blanks or without, and often followed by a word about the
// binding.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace marc {

// Returns the check digit of a ten-digit ISBN or of an ISSN: modulo 11, with weights that decrease to 2 for the last of
// the digits.
QChar checkDigit11(QStringView digits);

// Equal for different spellings of one ISBN: its number in the 13-digit form. 0: none.
using IsbnKey = quint64;

// A ten-digit ISBN is converted to the 13-digit form if its check digit is correct; otherwise its key equals only that
// of the same ten characters. The check digit of a 13-digit ISBN is not checked.
IsbnKey isbnKey(QStringView text);

// Returns whether the key of a ten-digit ISBN shows that its check digit is correct.
bool isRightIsbn10(IsbnKey key);

// Returns whether the text starts with a 13-digit ISBN, correct or not.
bool isIsbn13(QStringView text);
// Returns the fault of a 13-digit ISBN; std::nullopt if it is correct or the text is not one.
std::optional<QString> isbn13Fault(QStringView text);

// The number of characters of an ISBN that the import keeps. A 13-digit ISBN with hyphens loses its end there.
inline constexpr qsizetype isbnKept = 13;
// Returns the digits that are left in the table of a 13-digit ISBN cut in this way; an empty string if the text is not
// such an ISBN.
QString cutIsbn13(QStringView stored);
// Returns whether the ISBN may be the one that was cut.
bool beginsWith(IsbnKey isbn, const QString &cut);

std::optional<QString> issnFault(QStringView text);

} // namespace marc
