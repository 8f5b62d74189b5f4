#include "database/dataSources.h"
#include "database/odbcHandles.h"
#include <QList>
#include <QSettings>
#include <array>
#include <utility>

#ifndef Q_OS_WIN
#include <odbcinst.h>
#endif

using namespace Qt::StringLiterals;

namespace database {

namespace {

using Entries = QList<std::pair<QString, QString>>;

// unixODBC keeps its files as they are written, nearly always in UTF-8, and widens them byte by byte for the wide
// calls; the driver manager of Windows converts correctly.
#ifdef Q_OS_WIN
using Character = SQLWCHAR;
constexpr auto nextDataSource = SQLDataSourcesW;
#else
using Character = SQLCHAR;
constexpr auto nextDataSource = SQLDataSources;
#endif

// Returns one of the driver manager's lists of names and descriptions.
template <class Call>
Entries entries(Call next) {
    Entries found;
    const OdbcEnvironment environment;
    if (!environment)
        return found;
    for (SQLUSMALLINT direction = SQL_FETCH_FIRST;; direction = SQL_FETCH_NEXT) {
        std::array<Character, 1024> name{}, description{};
        SQLSMALLINT nameLength = 0, descriptionLength = 0;
        if (!SQL_SUCCEEDED(next(environment.get(), direction, name.data(), SQLSMALLINT(name.size() - 1), &nameLength,
                                description.data(), SQLSMALLINT(description.size() - 1), &descriptionLength)))
            return found;
        found.append({fromOdbc(name.data(), qsizetype(name.size())),
                      fromOdbc(description.data(), qsizetype(description.size()))});
    }
}

QStringList names(const Entries &entries) {
    QStringList names;
    for (const auto &[name, description] : entries)
        if (!name.trimmed().isEmpty())
            names.append(name);
    return names;
}

QString driverOf(const QString &dataSource) {
    for (const auto &[source, description] : entries(nextDataSource))
        if (source.compare(dataSource, Qt::CaseInsensitive) == 0)
            return description;
    return {};
}

} // namespace

QStringList dataSourceNames() {
    return names(entries(nextDataSource));
}

QString pairsOfDataSource(const QString &name) {
    const QString driver = name.isEmpty() ? QString() : driverOf(name);
    if (driver.isEmpty())
        return {};
    QString pairs = u"Driver=" + driver + u';';
#ifdef Q_OS_WIN
    // The user's data source hides one of the machine with the same name.
    for (const QStringView owner : {u"HKEY_CURRENT_USER", u"HKEY_LOCAL_MACHINE"}) {
        const QSettings source(owner + u"\\Software\\ODBC\\ODBC.INI\\" + name, QSettings::NativeFormat);
        for (const QString &key : source.childKeys())
            if (key.compare(u"driver", Qt::CaseInsensitive) != 0) // the path of its library
                pairs += key + u'=' + source.value(key).toString() + u';';
        if (!source.childKeys().isEmpty())
            break;
    }
#else
    // A null key requests all keys, each terminated by a NUL.
    const auto read = [&name](const char *key) {
        QByteArray buffer(4096, '\0');
        SQLGetPrivateProfileString(name.toUtf8().constData(), key, "", buffer.data(), int(buffer.size() - 1),
                                   "ODBC.INI");
        return buffer;
    };
    for (const QByteArray &key : read(nullptr).split('\0')) {
        if (key.isEmpty())
            break;
        if (key.compare("driver", Qt::CaseInsensitive) != 0)
            pairs += QString::fromUtf8(key) + u'=' + QString::fromUtf8(read(key.constData()).constData()) + u';';
    }
#endif
    return pairs;
}

QString libraryOfDriver(const QString &driver) {
    if (driver.contains(u'/'))
        return driver;
#ifdef Q_OS_WIN
    return {};
#else
    if (driver.isEmpty())
        return {};
    QByteArray library(4096, '\0');
    SQLGetPrivateProfileString(driver.toUtf8().constData(), "Driver", "", library.data(), int(library.size() - 1),
                               "ODBCINST.INI");
    return QString::fromUtf8(library.constData());
#endif
}

bool driverManagerPools() {
#ifdef Q_OS_WIN
    return false;
#else
    std::array<char, 16> said{};
    SQLGetPrivateProfileString("ODBC", "Pooling", "0", said.data(), int(said.size() - 1), "ODBCINST.INI");
    const QByteArray pooling = QByteArray(said.data()).toLower();
    return pooling.startsWith('1') || pooling.startsWith('y') || pooling.startsWith("on");
#endif
}

} // namespace database
