// The definition of a number in a text: surrounding blanks (U+0020), an optional sign, digits with at most one decimal
// point. No exponent, no &H, no thousands separator, no currency, no full-width digits.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace platform {

bool isNumericText(QStringView text);

// Return the value of a numeric text; std::nullopt if the text is not a number or the value does not fit. The integers
// round fractions to the nearest whole number, a half to the even one.
std::optional<qint16> toInt16(QStringView text);
std::optional<qint32> toInt32(QStringView text);
std::optional<double> toDouble(QStringView text);

// Returns the number at the start of the text after leading blanks, with sign and one decimal point; 0 if there is
// none.
double leadingNumber(QStringView text);

// Returns the text without the blanks (only U+0020) at its ends.
QString trimBlanks(QStringView text);

// Returns the decimal digits of `value`, padded with leading zeros to `width` characters; an empty string if the number
// is longer than that.
QString padZero(int width, qint32 value);

} // namespace platform
