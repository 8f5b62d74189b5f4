// Code page, numbers and connection text.
#include "app/connectionText.h"
#include "database/connectionText.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <QRegularExpression>
#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace database;

namespace fuzz {

namespace {

void checkCodePage(QByteArrayView bytes, const QString &text) {
    const QString decoded = decode(bytes);
    require(decoded.size() <= bytes.size(), "a byte decodes to at most one character");
    require(decoded.contains(QChar::ReplacementCharacter) || encode(decoded) == bytes,
            "decoded bytes encode to the same bytes");
    const QByteArray doubled = bytes.toByteArray() + "\r" + bytes.toByteArray();
    require(decode(doubled) == decoded + u'\r' + decoded, "lines can be decoded separately");
    const QByteArray encoded = encode(text);
    require(encoded.size() == gbkLength(text), "the counted length equals the encoded length");
    require((decode(encoded) == text) == isEncodable(text), "exactly the encodable texts survive encoding");
    require(encode(decode(encoded)) == encoded, "encoding a second time loses nothing more");
}

template <class Integer>
void checkInteger(std::optional<Integer> found, std::optional<double> value) {
    const double whole = value ? std::nearbyint(*value) : 0;
    const bool fits =
        value && whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max();
    require(found.has_value() == fits && (!fits || double(*found) == whole),
            "a number is rounded to the nearest integer that fits");
}

void checkNumber(const QString &text) {
    static const QRegularExpression shape(uR"(\A *[+-]?([0-9]+\.?[0-9]*|\.[0-9]+) *\z)"_s);
    const bool numeric = shape.match(text).hasMatch();
    require(isNumericText(text) == numeric, "a number is recognized by its shape");
    const double model = std::strtod(text.toLatin1().constData(), nullptr);
    const bool fits = numeric && std::isfinite(model);
    const std::optional<double> value = toDouble(text);
    require(value.has_value() == fits && (!fits || *value == model), "the value of a number is right");
    require(!fits || leadingNumber(text) == model, "the leading number of a number is its value");
    require(leadingNumber(QString(text + u"年")) == leadingNumber(text),
            "text after a number does not change its value");
    checkInteger(toInt16(text), value);
    checkInteger(toInt32(text), value);
    const QString trimmed = trimBlanks(text);
    require(text.contains(trimmed) && !trimmed.startsWith(u' ') && !trimmed.endsWith(u' '),
            "blanks are trimmed from both ends");
}

void checkPadded(int width, qint32 value) {
    const QString digits = QString::number(value);
    const QString padded = padZero(width, value);
    require(padded.size() == (digits.size() > width ? 0 : width), "the text has the given width or is empty");
    require(padded.isEmpty() || value < 0 || padded.toInt() == value, "a number is padded with leading zeros");
}

bool isSimple(const QString &value) {
    return value == value.trimmed() && !value.contains(u';') && !value.contains(u'{') && !value.contains(u'}');
}

// Checks the settings that the text must always contain for the driver that its name was taken for.
void checkTold(const QString &text, database::Server server) {
    if (server == database::Server::Sqlite) {
        const qint32 wait = toInt32(connectionValue(text, u"Timeout")).value_or(-1);
        require(connectionValue(text, u"NoCreat") == u"1", "no database file is made");
        require(wait >= 0 && wait <= 2000, "the wait for a lock is short");
    }
    if (server == database::Server::MariaDb)
        require(connectionValue(text, u"CHARSET") == u"utf8mb4" && connectionValue(text, u"AUTO_RECONNECT") == u"0",
                "the driver never reconnects by itself");
}

void checkConnection(Input &input) {
    constexpr auto drivers =
        std::to_array<QStringView>({u"", u"SQLite3", u"libmaodbc MariaDB", u"mdb", u"psqlodbcw.so"});
    app::ConnectionFields fields{input.flag(), input.text(), input.oneOf(drivers) + input.text(),
                                 input.text(), input.text(), input.text(),
                                 input.text()};
    const QString text = app::composeConnectionString(fields);
    const QString source = u"Driver=" + input.oneOf(drivers);
    const QString any = input.text();
    for (const QString &data : {any, source})
        require(timeLimits(driverText(any, data, namedDriver(any, data), Certainty::Known), data).silence().count() >=
                    0,
                "time limits are not negative");
    for (const QString &field :
         {fields.dataSource, fields.driver, fields.server, fields.user, fields.password, fields.database})
        if (!isSimple(field))
            return;
    const QString driver = fields.dataSourceChosen ? QString() : fields.driver;
    const QString told = driverText(text, source, namedDriver(text, source), Certainty::Guessed);
    checkTold(told, namedDriver(text, source).server);
    require(connectionValue(text, u"dsn") == (fields.dataSourceChosen ? fields.dataSource : QString()),
            "the data source is kept");
    for (const QString &form : {text, told}) {
        require(connectionValue(form, u"Driver") == driver, "the driver is kept");
        require(connectionValue(form, u"uid") == fields.user, "the user is kept");
        require(connectionValue(form, u"PWD") == fields.password, "the password is kept");
        require(connectionValue(form, u"database") == fields.database, "the database is kept");
    }
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
