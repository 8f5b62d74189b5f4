#include "platform/numbers.h"
#include <cmath>
#include <limits>

namespace platform {

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

QStringView withoutBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

// Returns the length of the number at the start of the text: sign, digits, one decimal point. 0 if there is no digit.
qsizetype numberLength(QStringView text) {
    qsizetype at = text.startsWith(u'+') || text.startsWith(u'-') ? 1 : 0;
    bool digits = false;
    bool point = false;
    for (; at < text.size(); ++at) {
        if (isDigit(text[at]))
            digits = true;
        else if (text[at] == u'.' && !point)
            point = true;
        else
            break;
    }
    return digits ? at : 0;
}

double valueOf(QStringView number) {
    return number.toDouble();
}

// The fast path for plain digits, as in directories: returns their value, or -1 if the text is anything else or longer
// than nine digits.
int plainDigits(QStringView text) {
    constexpr int longest = 9;
    int value = text.isEmpty() || text.size() > longest ? -1 : 0;
    for (qsizetype i = 0; value >= 0 && i < text.size(); ++i)
        value = isDigit(text[i]) ? value * 10 + (text[i].unicode() - u'0') : -1;
    return value;
}

template <class Integer>
std::optional<Integer> toInteger(QStringView text) {
    if (const int plain = plainDigits(text); plain >= 0 && plain <= std::numeric_limits<Integer>::max())
        return Integer(plain);
    const std::optional<double> value = toDouble(text);
    if (!value)
        return std::nullopt;
    const double whole = std::nearbyint(*value); // the default rounding mode rounds a half to the even number
    if (whole < double(std::numeric_limits<Integer>::min()) || whole > double(std::numeric_limits<Integer>::max()))
        return std::nullopt;
    return Integer(whole);
}

} // namespace

bool isNumericText(QStringView text) {
    const QStringView inner = withoutBlanks(text);
    return !inner.isEmpty() && numberLength(inner) == inner.size();
}

std::optional<double> toDouble(QStringView text) {
    if (const int plain = plainDigits(text); plain >= 0)
        return plain;
    if (!isNumericText(text))
        return std::nullopt;
    const double value = valueOf(withoutBlanks(text));
    if (!std::isfinite(value)) // for example hundreds of digits
        return std::nullopt;
    return value;
}

std::optional<qint16> toInt16(QStringView text) {
    return toInteger<qint16>(text);
}
std::optional<qint32> toInt32(QStringView text) {
    return toInteger<qint32>(text);
}

double leadingNumber(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    return valueOf(text.first(numberLength(text)));
}

QString trimBlanks(QStringView text) {
    return withoutBlanks(text).toString();
}

QString padZero(int width, qint32 value) {
    const QString digits = QString::number(value);
    if (digits.size() > width)
        return {};
    return digits.rightJustified(width, u'0');
}

} // namespace platform
