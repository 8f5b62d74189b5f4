#include "database/storedConnection.h"

using namespace Qt::StringLiterals;

namespace database {

namespace {

struct Place {
    QString application = platform::settingsApplication.toString();
    QString section = u"Setting"_s;
    QString key = u"TarvexPass"_s;
};

} // namespace

std::optional<QString> storedConnection(const platform::Settings &settings) {
    const Place place;
    const QString absent = u"NotExsists"_s;
    const QString stored = settings.read(place.application, place.section, place.key, absent);
    return stored == absent ? std::nullopt : std::optional(stored);
}

platform::Status storeConnection(const platform::Settings &settings, const QString &connectionString) {
    const Place place;
    return settings.write(place.application, place.section, place.key, connectionString);
}

} // namespace database
