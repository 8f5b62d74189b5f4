#include "database/whereabouts.h"
#include "database/connectionText.h"
#include "database/dataSources.h"
#include "platform/numbers.h"
#include <QFileInfo>
#include <array>

namespace database {

namespace {

struct UsualPort {
    QStringView driver;
    int port;
};
constexpr auto usualPorts = std::to_array<UsualPort>({
    {u"postgres", 5432},
    {u"psqlodbc", 5432},
    {u"maria", 3306},
    {u"mysql", 3306},
    {u"myodbc", 3306},
    {u"maodbc", 3306},
    {u"sql server", 1433},
    {u"freetds", 1433},
    {u"tdsodbc", 1433},
});

bool isFile(QStringView driver) {
    return driver.contains(u"sqlite", Qt::CaseInsensitive) || driver.contains(u"mdb", Qt::CaseInsensitive);
}

} // namespace

Whereabouts whereabouts(const QString &connectionString) {
    const QString name = connectionValue(connectionString, u"DSN");
    const QString source = pairsOfDataSource(name);
    const auto said = [&](std::initializer_list<QStringView> keys) {
        for (const QString &text : {connectionString, source})
            for (const QStringView key : keys)
                if (const QString value = connectionValue(text, key); !value.isEmpty())
                    return value;
        return QString();
    };
    const QString driver = connectionValue(connectionString, u"Driver") + connectionValue(source, u"Driver");
    const QString database = said({u"Database", u"DBQ"});
    if (isFile(driver))
        return {.name = QFileInfo(database).fileName(), .server = {}, .port = 0, .file = database};
    Whereabouts found{.name = database.isEmpty() ? name : database,
                      .server = said({u"Server", u"Servername", u"Host", u"Address"}),
                      .port = 0,
                      .file = {}};
    if (said({u"Socket"}).isEmpty() && !found.server.startsWith(u'/')) {
        for (const UsualPort &usual : usualPorts)
            if (driver.contains(usual.driver, Qt::CaseInsensitive))
                found.port = usual.port;
        found.port = platform::toInt32(said({u"Port"})).value_or(found.port);
    }
    return found;
}

} // namespace database
