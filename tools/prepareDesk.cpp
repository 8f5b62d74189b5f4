// Prepares the environment of one user. Creates the embedded database with its tables and sample rows if it does not
// exist, adds missing tables if it exists, and stores the connection text if none is stored. Prints what it did.
// Nothing else creates a database: the program treats a missing file as a database that cannot be reached.
// DRIVER is the pair of the connection text by which the driver is found, "Driver=SQLite3" if it is missing.
// Usage: prepareDesk DATABASE-FILE CONNECTION-TEXT [DRIVER]
#include "database/linkPool.h"
#include "database/script.h"
#include "database/storedConnection.h"
#include <QCoreApplication>
#include <QFile>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QString resource(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

struct Place {
    QString file, driver;
};

platform::Result<database::Connection> openDatabase(database::LinkPool &links, const Place &place) {
    return database::Connection::open(links, place.driver + u";Database=" + place.file + u';');
}

platform::Status runWhole(database::Connection &connection, const QString &script) {
    return database::runScript(connection, u"begin transaction;" + script + u"commit;");
}

// Builds the database under a temporary name and renames it once it is complete.
platform::Status makeDatabase(const Place &place) {
    const QString growing = place.file + u".new";
    if (QFile empty(growing); !empty.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return platform::Failure{empty.errorString()};
    {
        database::LinkPool links;
        auto connection = openDatabase(links, {growing, place.driver});
        if (!connection)
            return connection.failure();
        const QString script = resource(u":/schema/sqlite.sql"_s) + resource(u":/schema/sample.sql"_s);
        if (const platform::Status run = runWhole(connection.value(), script); !run)
            return run;
    }
    QFile file(growing);
    if (!file.rename(place.file))
        return platform::Failure{file.errorString()};
    return platform::success();
}

// Creates the missing tables and indexes, without rows. Returns the names of the tables and indexes created.
platform::Result<QStringList> mendDatabase(const Place &place) {
    database::LinkPool links;
    auto connection = openDatabase(links, place);
    if (!connection)
        return connection.failure();
    const auto standing = connection.value().query(u"select lower(name) from sqlite_master"_s);
    if (!standing)
        return standing.failure();
    QStringList known, made;
    for (int row = 0; row < standing.value()->rowCount(); ++row)
        known.append(standing.value()->text(row, 0));
    QString script;
    for (const QString &statement : database::statementsOf(resource(u":/schema/sqlite.sql"_s))) {
        const QString name = statement.simplified().section(u' ', 2, 2); // create table NAME
        if (known.contains(name.toLower()))
            continue;
        script += statement + u';';
        made.append(name);
    }
    if (const platform::Status run = runWhole(connection.value(), script); !run)
        return run.failure();
    return made;
}

platform::Status storeSetting(const QString &connectionString) {
    const platform::Settings settings;
    return database::storedConnection(settings) ? platform::success()
                                                : database::storeConnection(settings, connectionString);
}

// A database that cannot be repaired is reported but is not an error: the program can read files without a database.
platform::Status prepareDatabase(const Place &place) {
    const QByteArray name = place.file.toUtf8();
    if (!QFile::exists(place.file)) {
        platform::Status made = makeDatabase(place);
        if (made)
            std::printf("The embedded database is %s\n", name.constData());
        return made;
    }
    const auto mended = mendDatabase(place);
    if (!mended)
        std::printf("%s is left as it is, it does not work as a database: %s\n", name.constData(),
                    mended.failure().description.toUtf8().constData());
    else if (!mended.value().isEmpty())
        std::printf("The embedded database %s lacked tables. Created empty: %s\n"
                    "If it held rows, another file has taken its place: bring the old one back.\n",
                    name.constData(), mended.value().join(u", "_s).toUtf8().constData());
    return platform::success();
}

int complain(const platform::Failure &failure) {
    std::fprintf(stderr, "%s\n", failure.description.toUtf8().constData());
    return 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3 && arguments.size() != 4)
        return complain({u"usage: prepareDesk DATABASE-FILE CONNECTION-TEXT [DRIVER]"_s});
    const Place place{arguments[1], arguments.value(3, u"Driver=SQLite3"_s)};
    if (const platform::Status prepared = prepareDatabase(place); !prepared)
        return complain(prepared.failure());
    if (const platform::Status stored = storeSetting(arguments[2]); !stored)
        return complain(stored.failure());
    return 0;
}
