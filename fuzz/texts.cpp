// Code page, numbers, connection text.
#include "app/connectionText.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "platform/codepage936.h"
#include "platform/database/connectionText.h"
#include "platform/numbers.h"
#include <QRegularExpression>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace platform;

namespace fuzz {

namespace {

void checkCodePage(QByteArrayView bytes, const QString &text) {
    const QString decoded = decode(bytes);
    require(decoded.size() <= bytes.size(), "no byte gives two characters");
    require(decoded.contains(QChar::ReplacementCharacter) || encode(decoded) == bytes, "bytes come back");
    const QByteArray doubled = bytes.toByteArray() + "\r" + bytes.toByteArray();
    require(decode(doubled) == decoded + u'\r' + decoded, "a line may be decoded for itself");
    const QByteArray encoded = encode(text);
    require(encoded.size() == gbkLength(text), "bytes are counted as they are made");
    require((decode(encoded) == text) == isEncodable(text), "what has a code comes back, and nothing else does");
    require(encode(decode(encoded)) == encoded, "what is lost is lost once");
}

template <class Integer>
void checkInteger(std::optional<Integer> found, std::optional<double> value) {
    const double whole = value ? std::nearbyint(*value) : 0;
    const bool fits =
        value && whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max();
    require(found.has_value() == fits && (!fits || double(*found) == whole),
            "a whole number is the nearest one that fits");
}

void checkNumber(const QString &text) {
    static const QRegularExpression shape(uR"(\A *[+-]?([0-9]+\.?[0-9]*|\.[0-9]+) *\z)"_s);
    const bool numeric = shape.match(text).hasMatch();
    require(isNumericText(text) == numeric, "a number by its shape");
    const double model = std::strtod(text.toLatin1().constData(), nullptr);
    const bool fits = numeric && std::isfinite(model);
    const std::optional<double> value = toDouble(text);
    require(value.has_value() == fits && (!fits || *value == model), "the value of a number");
    require(!fits || leadingNumber(text) == model, "a number starts with itself");
    require(leadingNumber(QString(text + u"年")) == leadingNumber(text),
            "what stands behind a number is not looked at");
    checkInteger(toInt16(text), value);
    checkInteger(toInt32(text), value);
    const QString trimmed = trimBlanks(text);
    require(text.contains(trimmed) && !trimmed.startsWith(u' ') && !trimmed.endsWith(u' '), "blanks go from the ends");
}

void checkPadded(int width, qint32 value) {
    const QString digits = QString::number(value);
    const QString padded = padZero(width, value);
    require(padded.size() == (digits.size() > width ? 0 : width), "as wide as its place, or nothing");
    require(padded.isEmpty() || value < 0 || padded.toInt() == value, "zeros go in front");
}

bool isSimple(const QString &value) {
    return value == value.trimmed() && !value.contains(u';') && !value.contains(u'{') && !value.contains(u'}');
}

void checkConnection(Input &input) {
    app::ConnectionFields fields{input.flag(), input.text(), input.text(), input.text(),
                                 input.text(), input.text(), input.text()};
    const QString text = app::composeConnectionString(fields);
    const QString any = input.text();
    driverText(any, fields.driver);
    connectionValue(any, fields.user);
    if (!isSimple(fields.dataSource) || !isSimple(fields.driver) || !isSimple(fields.server) ||
        !isSimple(fields.user) || !isSimple(fields.password) || !isSimple(fields.database))
        return;
    const QString driver = fields.dataSourceChosen ? QString() : fields.driver;
    require(connectionValue(text, u"dsn") == (fields.dataSourceChosen ? fields.dataSource : QString()),
            "the data source");
    for (const QString &form : {text, driverText(text, any)}) {
        require(connectionValue(form, u"Driver") == driver, "the driver comes through");
        require(connectionValue(form, u"uid") == fields.user, "the user comes through");
        require(connectionValue(form, u"PWD") == fields.password, "the password comes through");
        require(connectionValue(form, u"database") == fields.database, "the database comes through");
    }
    const QString once = driverText(text, any);
    require(driverText(once, any) == once, "the driver's text is made once");
}

} // namespace

void texts(QByteArrayView bytes) {
    Input input(bytes);
    checkConnection(input);
    checkNumber(input.number());
    checkNumber(input.text());
    checkPadded(input.below(12), qint32(uint(input.byte()) << 24 | uint(input.byte()) << 12 | uint(input.byte())));
    const QString text = input.text();
    checkCodePage(input.rest(), text);
}

} // namespace fuzz
