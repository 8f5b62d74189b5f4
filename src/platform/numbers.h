// What counts as a number in a text, in one place: blanks (U+0020) around, an optional sign, digits with at most one
// decimal point. No exponent, no &H, no thousands sign, no currency, no full-width digits.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace platform {

bool isNumericText(QStringView text);

// The value of a numeric text; nothing where the text is no number or the value does not fit.
// Fractions are taken to the nearest whole number, a half to the even one.
std::optional<qint16> toInt16(QStringView text);
std::optional<qint32> toInt32(QStringView text);
std::optional<double> toDouble(QStringView text);

// The number a text starts with (leading blanks passed over, sign and one decimal point taken), else 0.
double leadingNumber(QStringView text);

// The text without the blanks (U+0020 only) at its ends.
QString trimBlanks(QStringView text);

// The decimal digits of value with zeros in front to `width` characters; empty when the number is wider than that.
QString padZero(int width, qint32 value);

} // namespace platform
