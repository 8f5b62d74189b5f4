#include "database/connectionText.h"
#include "database/dataSources.h"
#include "platform/numbers.h"
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace database {

namespace {

// Returns the end of the pair that starts at `from`: its ";", not counting those inside a value in braces. -1 if a
// value has an opening brace and no closing one.
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

// A pair of a text, and its key and value without surrounding blanks.
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

// Replaces all pairs of the key by one: which of several a driver takes is undefined.
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

// Returns the value of a key in the text, or else in its data source.
QString saidOf(const QString &text, const QString &dataSource, QStringView key) {
    const QString said = connectionValue(text, key);
    return said.isEmpty() ? connectionValue(dataSource, key) : said;
}

// Returns the value of an added pair; an empty string if it is a time limit and there is none.
QString valueOf(const AddedPair &pair, const QString &text, const TimeLimits &limits) {
    const auto seconds = [](std::chrono::seconds limit) {
        return limit.count() > 0 ? QString::number(limit.count()) : QString();
    };
    if (pair.value == u"%login")
        return seconds(limits.login);
    if (pair.value == u"%silence")
        return seconds(limits.silence());
    return pair.value.startsWith(u'%') ? connectionValue(text, pair.value.sliced(1)) : pair.value.toString();
}

bool isLonger(const QString &said, QStringView limit) {
    const auto number = platform::toInt32(said);
    return !number || *number < 0 || *number > limit.toInt();
}

void add(QString &text, const QString &dataSource, const AddedPair &pair, const QString &value) {
    using When = AddedPair::When;
    const QString said = saidOf(text, pair.when == When::MissingInText ? QString() : dataSource, pair.key);
    if (pair.when == When::Always || (pair.when == When::LongerOrMissing && isLonger(said, value)))
        force(text, pair.key, value);
    else if (said.isEmpty())
        append(text, pair.key, value);
}

} // namespace

// A driver that counts milliseconds in 32 bits would treat a longer limit as none.
constexpr std::chrono::seconds longestLimit = std::chrono::hours(24);

TimeLimits timeLimits(const QString &connectionString, const QString &dataSource) {
    TimeLimits limits;
    const auto read = [&](QStringView key, std::chrono::seconds &limit) {
        if (const auto seconds = platform::toInt32(saidOf(connectionString, dataSource, key)); seconds && *seconds >= 0)
            limit = std::min(std::chrono::seconds(*seconds), longestLimit);
    };
    read(u"LoginTimeout", limits.login);
    read(u"StatementTimeout", limits.statement);
    return limits;
}

const DriverRow &namedDriver(const QString &connectionString, const QString &dataSource) {
    const QString name = saidOf(connectionString, dataSource, u"Driver");
    const QFileInfo library(libraryOfDriver(name));
    return guessedDriver(std::to_array<QString>({library.fileName(), QFileInfo(library.canonicalFilePath()).fileName(),
                                                 name.contains(u'/') ? QString() : name}));
}

QString driverText(const QString &connectionString, const QString &dataSource, const DriverRow &driver,
                   Certainty certainty) {
    QString text = connectionString;
    text.remove(u"PROVIDER=MSDASQL;"_s, Qt::CaseInsensitive);
    const TimeLimits limits = timeLimits(text, dataSource);
    for (const AddedPair &pair : driver.pairs)
        if (const QString value = valueOf(pair, text, limits); !value.isEmpty())
            add(text, dataSource, pair, value);
    if (certainty == Certainty::Guessed)
        force(text, u"NoCreat", u"1");
    return text;
}

} // namespace database
