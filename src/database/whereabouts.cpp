#include "database/whereabouts.h"
#include "database/connectionText.h"
#include "database/dataSources.h"
#include <QFileInfo>

namespace database {

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
    const QString database = said({u"Database", u"DBQ"});
    if (namedDriver(connectionString, source).file)
        return {.name = QFileInfo(database).fileName(), .server = {}, .file = database};
    return {.name = database.isEmpty() ? name : database,
            .server = said({u"Server", u"Servername", u"Host", u"Address"}),
            .file = {}};
}

} // namespace database
