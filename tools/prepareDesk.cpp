// Prepares a user's desk once: makes the embedded database with its tables and sample rows where there is none, and
// stores the connection text where there is no setting yet. Usage: prepareDesk DATABASE-FILE CONNECTION-TEXT
#include "app/startUp.h"
#include "platform/database/script.h"
#include <QCoreApplication>
#include <QFile>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QString resource(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The database grows under another name and gets its own only when it is whole.
platform::Status makeDatabase(const QString &path) {
    const QString growing = path + u".new";
    QFile::remove(growing);
    {
        auto connection = platform::Connection::open(u"Driver=SQLite3;Database=" + growing + u';');
        if (!connection)
            return connection.failure();
        const QString script = u"begin transaction;" + resource(u":/schema/sqlite.sql"_s) +
                               resource(u":/schema/sample.sql"_s) + u"commit;";
        if (const platform::Status run = platform::runScript(connection.value(), script); !run)
            return run;
    }
    platform::endKeptConnections();
    QFile file(growing);
    if (!file.rename(path))
        return platform::Failure{file.errorString()};
    return platform::success();
}

platform::Status storeSetting(const QString &connectionString) {
    const platform::Settings settings;
    const QString application = app::settingApplication.toString();
    const QString section = app::settingSection.toString();
    const QString key = app::settingKey.toString();
    const QString absent = app::settingAbsent.toString();
    if (settings.read(application, section, key, absent) != absent)
        return platform::success();
    return settings.write(application, section, key, connectionString);
}

int complain(const platform::Failure &failure) {
    std::fprintf(stderr, "%s\n", failure.description.toUtf8().constData());
    return 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return complain({u"usage: prepareDesk DATABASE-FILE CONNECTION-TEXT"_s});
    if (!QFile::exists(arguments[1])) {
        if (const platform::Status made = makeDatabase(arguments[1]); !made)
            return complain(made.failure());
        std::printf("The embedded database stands in %s\n", arguments[1].toUtf8().constData());
    }
    if (const platform::Status stored = storeSetting(arguments[2]); !stored)
        return complain(stored.failure());
    return 0;
}
