#include "platform/database/connectionText.h"
#include <vector>

namespace platform {

using namespace Qt::StringLiterals;

namespace {

// Ends of pairs: a ";" inside braces belongs to the value.
qsizetype pairEnd(QStringView text, qsizetype from) {
    bool braces = false;
    for (qsizetype at = from; at < text.size(); ++at) {
        if (text[at] == u'{')
            braces = true;
        else if (text[at] == u'}')
            braces = false;
        else if (text[at] == u';' && !braces)
            return at;
    }
    return text.size();
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
        const qsizetype end = pairEnd(text, at);
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

QString driverText(const QString &connectionString, const QString &dataSource) {
    QString text = connectionString;
    text.remove(u"PROVIDER=MSDASQL;"_s, Qt::CaseInsensitive);
    const QString driver = connectionValue(text, u"Driver") + connectionValue(dataSource, u"Driver");
    const QString database = connectionValue(text, u"Database");
    if (contains(driver, u"mdb") && !database.isEmpty() && connectionValue(text, u"DBQ").isEmpty())
        append(text, u"DBQ", database);
    if (contains(driver, u"sqlite")) {
        force(text, u"NoCreat", u"1");
        if (connectionValue(text, u"StepAPI").isEmpty())
            append(text, u"StepAPI", u"1");
    }
    if (contains(driver, u"maria"))
        force(text, u"CHARSET", u"utf8mb4");
    if (contains(driver, u"maria") || contains(driver, u"mysql"))
        force(text, u"AUTO_RECONNECT", u"0");
    return text;
}

} // namespace platform
