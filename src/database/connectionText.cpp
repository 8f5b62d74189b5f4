#include "database/connectionText.h"
#include "platform/numbers.h"
#include <vector>

using namespace Qt::StringLiterals;

namespace database {

namespace {

// Where the pair that starts at `from` ends: at its ";", of which those inside a value in braces are none. -1 where a
// value opens a brace and none closes it.
qsizetype pairEnd(QStringView text, qsizetype from) {
    const auto next = [text](QChar sign, qsizetype at) {
        const qsizetype found = text.indexOf(sign, at);
        return found < 0 ? text.size() : found;
    };
    qsizetype value = next(u'=', from) + 1;
    while (value < text.size() && text[value] == u' ')
        ++value;
    if (value >= text.size() || text[value] != u'{' || next(u';', from) < value)
        return next(u';', from);
    const qsizetype close = text.indexOf(u'}', value);
    return close < 0 ? -1 : next(u';', close);
}

bool contains(QStringView text, QStringView part) {
    return text.contains(part, Qt::CaseInsensitive);
}

// The pairs of a text, each with its key and its value without blanks around it.
struct Pair {
    QStringView whole, key, value;
};

std::vector<Pair> pairsOf(QStringView text) {
    std::vector<Pair> pairs;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype found = pairEnd(text, at);
        const qsizetype end = found < 0 ? text.size() : found;
        const QStringView whole = text.sliced(at, end - at);
        if (const qsizetype equals = whole.indexOf(u'='); equals > 0)
            pairs.push_back({whole, whole.first(equals).trimmed(), whole.sliced(equals + 1).trimmed()});
        at = end + 1;
    }
    return pairs;
}

bool isKey(const Pair &pair, QStringView key) {
    return pair.key.compare(key, Qt::CaseInsensitive) == 0;
}

void append(QString &text, QStringView key, QStringView value) {
    if (!text.isEmpty() && !text.endsWith(u';'))
        text += u';';
    text += key + u'=' + value + u';';
}

// That pair in the place of all of its key: which of two a driver takes is its own affair.
void force(QString &text, QStringView key, QStringView value) {
    QString forced;
    for (const Pair &pair : pairsOf(text))
        if (!isKey(pair, key))
            forced += pair.whole + u';';
    append(forced, key, value);
    text = forced;
}

} // namespace

QString connectionValue(QStringView text, QStringView key) {
    for (const Pair &pair : pairsOf(text))
        if (isKey(pair, key)) {
            const bool braces = pair.value.startsWith(u'{') && pair.value.endsWith(u'}');
            return (braces ? pair.value.sliced(1, pair.value.size() - 2) : pair.value).toString();
        }
    return {};
}

bool bracesAreClosed(QStringView text) {
    qsizetype end = -1;
    do {
        end = pairEnd(text, end + 1);
    } while (end >= 0 && end < text.size());
    return end >= 0;
}

namespace {

// What the text says of a key, else its data source.
QString saidOf(const QString &text, const QString &dataSource, QStringView key) {
    const QString said = connectionValue(text, key);
    return said.isEmpty() ? connectionValue(dataSource, key) : said;
}

void addMissing(QString &text, const QString &dataSource, QStringView key, QStringView value) {
    if (saidOf(text, dataSource, key).isEmpty())
        append(text, key, value);
}

void tellSqlite(QString &text, const QString &dataSource) {
    constexpr qint32 longestWait = 2000; // ms; the window stands still as long
    addMissing(text, {}, u"StepAPI", u"1");
    force(text, u"NoCreat", u"1");
    const auto wait = platform::toInt32(saidOf(text, dataSource, u"Timeout"));
    if (!wait || *wait < 0 || *wait > longestWait)
        force(text, u"Timeout", QString::number(longestWait));
}

void tellMariaDb(QString &text, const QString &dataSource) {
    const TimeLimits limits = timeLimits(text, dataSource);
    if (limits.login.count() > 0)
        addMissing(text, dataSource, u"CONN_TIMEOUT", QString::number(limits.login.count()));
    if (limits.statement.count() > 0)
        for (const QStringView key : {u"READ_TIMEOUT", u"WRITE_TIMEOUT"})
            addMissing(text, dataSource, key, QString::number(limits.silence().count()));
    force(text, u"CHARSET", u"utf8mb4");
    force(text, u"AUTO_RECONNECT", u"0");
}

} // namespace

TimeLimits timeLimits(const QString &connectionString, const QString &dataSource) {
    TimeLimits limits;
    const auto read = [&](QStringView key, std::chrono::seconds &limit) {
        if (const auto seconds = platform::toInt32(saidOf(connectionString, dataSource, key)); seconds && *seconds >= 0)
            limit = std::chrono::seconds(*seconds);
    };
    read(u"LoginTimeout", limits.login);
    read(u"StatementTimeout", limits.statement);
    return limits;
}

QString driverText(const QString &connectionString, const QString &dataSource) {
    QString text = connectionString;
    text.remove(u"PROVIDER=MSDASQL;"_s, Qt::CaseInsensitive);
    const QString driver = connectionValue(text, u"Driver") + connectionValue(dataSource, u"Driver");
    if (const QString file = connectionValue(text, u"Database"); contains(driver, u"mdb") && !file.isEmpty())
        addMissing(text, {}, u"DBQ", file);
    if (contains(driver, u"sqlite"))
        tellSqlite(text, dataSource);
    if (contains(driver, u"maria") || contains(driver, u"mysql"))
        tellMariaDb(text, dataSource);
    return text;
}

} // namespace database
