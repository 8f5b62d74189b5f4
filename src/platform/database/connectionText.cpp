#include "platform/database/connectionText.h"

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

} // namespace

QString connectionValue(QStringView text, QStringView key) {
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = pairEnd(text, at);
        const QStringView pair = text.sliced(at, end - at);
        const qsizetype equals = pair.indexOf(u'=');
        if (equals > 0 && pair.first(equals).trimmed().compare(key, Qt::CaseInsensitive) == 0) {
            QStringView value = pair.sliced(equals + 1).trimmed();
            if (value.startsWith(u'{') && value.endsWith(u'}'))
                value = value.sliced(1, value.size() - 2);
            return value.toString();
        }
        at = end + 1;
    }
    return {};
}

QString driverText(const QString &connectionString, const QString &dataSourceDriver) {
    QString text = connectionString;
    text.remove(u"PROVIDER=MSDASQL;"_s, Qt::CaseInsensitive);
    const QString driver = connectionValue(text, u"Driver") + dataSourceDriver;
    const auto add = [&text](QStringView pair) {
        if (!text.isEmpty() && !text.endsWith(u';'))
            text += u';';
        text += pair;
    };
    const QString database = connectionValue(text, u"Database");
    if (contains(driver, u"mdb") && !database.isEmpty() && connectionValue(text, u"DBQ").isEmpty())
        add(QString(u"DBQ=" + database + u';'));
    if (contains(driver, u"sqlite") && connectionValue(text, u"StepAPI").isEmpty())
        add(u"StepAPI=1;");
    return text;
}

} // namespace platform
