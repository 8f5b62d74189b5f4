#include "marc/standardNumber.h"
#include <QVarLengthArray>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype longForm = 13;
constexpr qsizetype shortForm = 10;
constexpr qsizetype issnForm = 8;
constexpr IsbnKey beyondLongForm = 10'000'000'000'000; // keys of ten-digit ISBNs with a wrong check digit start here
constexpr QStringView bookland = u"978";

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool isPartOfNumber(QChar c) {
    return isDigit(c) || c == u'X' || c == u'x' || c == u'-' || c == u' ';
}

bool areDigits(QStringView text) {
    return std::ranges::all_of(text, isDigit);
}

using PlainNumber = QVarLengthArray<QChar, 16>;

// Returns the digits at the start of the text, with an X as the check digit.
PlainNumber plainNumber(QStringView text) {
    PlainNumber plain;
    for (const QChar c : text) {
        if (!isPartOfNumber(c))
            break;
        if (c != u'-' && c != u' ')
            plain.append(c == u'x' ? QChar(u'X') : c);
    }
    return plain;
}

bool startsAsBook(QStringView plain) {
    return plain.startsWith(bookland) || plain.startsWith(u"979");
}

// Returns the check digit of the first twelve digits: modulo 10, with alternating weights 1 and 3.
QChar checkDigit13(QStringView plain) {
    int sum = 0;
    for (qsizetype i = 0; i < longForm - 1; ++i)
        sum += (plain[i].unicode() - u'0') * (i % 2 ? 3 : 1);
    return QChar(char16_t(u'0' + (10 - sum % 10) % 10));
}

bool hasForm(QStringView plain, qsizetype form) {
    return plain.size() == form && areDigits(plain.chopped(1)) && (isDigit(plain.back()) || plain.back() == u'X');
}

} // namespace

QChar checkDigit11(QStringView digits) {
    int sum = 0;
    for (qsizetype i = 0; i < digits.size(); ++i)
        sum += (digits[i].unicode() - u'0') * int(digits.size() + 1 - i);
    constexpr QStringView byRemainder = u"0X987654321";
    return byRemainder[sum % 11];
}

IsbnKey isbnKey(QStringView text) {
    const PlainNumber number = plainNumber(text);
    const QStringView plain(number);
    if (plain.size() == longForm && areDigits(plain))
        return plain.toULongLong();
    if (!hasForm(plain, shortForm))
        return 0;
    if (checkDigit11(plain.chopped(1)) != plain.back())
        return beyondLongForm + plain.chopped(1).toULongLong() * 11 +
               (plain.back() == u'X' ? 10 : IsbnKey(plain.back().unicode() - u'0'));
    const QString twelve = bookland + plain.chopped(1);
    return QString(twelve + checkDigit13(twelve)).toULongLong();
}

bool isRightIsbn10(IsbnKey key) {
    return key != 0 && key < beyondLongForm;
}

bool isIsbn13(QStringView text) {
    const PlainNumber plain = plainNumber(text);
    return plain.size() == longForm && areDigits(plain);
}

std::optional<QString> isbn13Fault(QStringView text) {
    if (!isIsbn13(text))
        return std::nullopt;
    const PlainNumber plain = plainNumber(text);
    if (!startsAsBook(plain))
        return u"13位ISBN应以978或979开头"_s;
    if (const QChar right = checkDigit13(plain); right != plain.back())
        return u"ISBN校验位错误，应为"_s + right;
    return std::nullopt;
}

QString cutIsbn13(QStringView stored) {
    if (stored.size() != isbnKept || !startsAsBook(stored) || !std::ranges::all_of(stored, isPartOfNumber))
        return {};
    const PlainNumber plain = plainNumber(stored);
    return plain.size() < longForm && areDigits(plain) ? QStringView(plain).toString() : QString();
}

bool beginsWith(IsbnKey isbn, const QString &cut) {
    return isbn < beyondLongForm && !cut.isEmpty() && QString::number(isbn).startsWith(cut);
}

std::optional<QString> issnFault(QStringView text) {
    const PlainNumber plain = plainNumber(text);
    if (!hasForm(plain, issnForm))
        return u"ISSN应为8位"_s;
    if (const QChar right = checkDigit11(QStringView(plain).chopped(1)); right != plain.back())
        return u"ISSN校验位错误，应为"_s + right;
    return std::nullopt;
}

} // namespace marc
