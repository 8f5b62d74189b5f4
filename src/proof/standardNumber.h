// ISBN and ISSN as catalogues write them: with hyphens, blanks or neither, and often with a word on the binding behind.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace proof {

// The check digit of the short ISBN and of the ISSN: modulo 11, with weights that fall to 2 at the last of the digits.
QChar checkDigit11(QStringView digits);

// What two spellings of one ISBN have in common: its number in the form of thirteen digits. 0: none.
using IsbnKey = quint64;

// An ISBN of ten becomes the one of thirteen where its check digit is right; else it is like itself alone. Nothing is
// asked of the check digit of one of thirteen.
IsbnKey isbnKey(QStringView text);

// Whether an ISBN of thirteen digits stands there, be it right or wrong.
bool isIsbn13(QStringView text);
// What is wrong with an ISBN of thirteen digits; nothing for a right one, nor for whatever else stands there.
std::optional<QString> isbn13Fault(QStringView text);

// The import keeps so many characters of an ISBN. One of thirteen that is written with hyphens loses its end there.
inline constexpr qsizetype isbnKept = 13;
// The digits that are left of such a one in the store; empty where the text is no such thing.
QString cutIsbn13(QStringView stored);
// Whether the ISBN may be the one that was cut.
bool beginsWith(IsbnKey isbn, const QString &cut);

std::optional<QString> issnFault(QStringView text);

} // namespace proof
