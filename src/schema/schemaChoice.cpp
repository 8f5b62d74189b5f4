#include "schema/schemaChoice.h"
#include "marc/configurationFiles.h"
#include "schema/schemaReader.h"
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

QString application() {
    return platform::settingsApplication.toString();
}

} // namespace

QString chosenSchema(const platform::Settings &settings) {
    return settings.read(application(), u"Schema"_s, u"Path"_s, {});
}

platform::Status chooseSchema(const platform::Settings &settings, const QString &path) {
    return settings.write(application(), u"Schema"_s, u"Path"_s, path);
}

Checks chosenChecks(const platform::DeskState &state) {
    const QStringList off = state.value(platform::kept::checksOff);
    Checks checks = allChecks;
    for (size_t i = 0; i < checkCount; ++i)
        checks[i] = !maySwitchOff(Check(i)) || !off.contains(nameOf(Check(i)));
    return checks;
}

void chooseChecks(const platform::DeskState &state, Checks checks) {
    QStringList off;
    for (size_t i = 0; i < checkCount; ++i) {
        if (!checks[i])
            off.append(nameOf(Check(i)).toString());
    }
    state.keep(platform::kept::checksOff, off);
}

SchemaInForce::SchemaInForce(platform::Settings settings, QString folder)
    : m_settings(std::move(settings))
    , m_folder(std::move(folder)) {}

std::shared_ptr<const Schema> SchemaInForce::schema() {
    const SeenFile file = lookAt(pathOf(chosenSchema(m_settings)));
    if (file == m_seen)
        return m_schema;
    auto read = readSchemaFile(file.path);
    if (read) {
        take(file, std::move(read.value()));
    } else {
        m_seen = file;
        m_complaint = read.failure().description;
    }
    return m_schema;
}

platform::Status SchemaInForce::choose(const QString &path) {
    const QString shipped = pathOf({});
    const SeenFile file = lookAt(path.isEmpty() ? shipped : path);
    auto read = readSchemaFile(file.path);
    if (!read)
        return read.failure();
    if (const auto stored = chooseSchema(m_settings, file.path == shipped ? QString() : file.path); !stored)
        return stored;
    take(file, std::move(read.value()));
    return platform::success();
}

QString SchemaInForce::pathOf(const QString &chosen) const {
    return chosen.isEmpty() ? m_folder + marc::schemaFile : chosen;
}

SchemaInForce::SeenFile SchemaInForce::lookAt(const QString &path) {
    const QFileInfo file(path);
    return {path, file.lastModified(), file.size()};
}

void SchemaInForce::take(const SeenFile &file, Schema schema) {
    m_seen = file;
    m_path = file.path;
    m_readAt = QDateTime::currentDateTime();
    m_schema = std::make_shared<const Schema>(std::move(schema));
    m_complaint.clear();
}

} // namespace schema
