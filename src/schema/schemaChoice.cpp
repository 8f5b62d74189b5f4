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

SchemaInForce::SchemaInForce(platform::Settings settings, QString folder)
    : m_settings(std::move(settings))
    , m_folder(std::move(folder)) {}

std::shared_ptr<const Schema> SchemaInForce::schema() {
    const QString chosen = chosenSchema(m_settings);
    const QString path = chosen.isEmpty() ? m_folder + marc::schemaFile : chosen;
    const QFileInfo file(path);
    if (path == m_path && file.lastModified() == m_changed && file.size() == m_size)
        return m_schema;
    m_path = path;
    m_changed = file.lastModified();
    m_size = file.size();
    auto read = readSchemaFile(path);
    if (read) {
        m_schema = std::make_shared<const Schema>(std::move(read.value()));
        m_complaint.clear();
    } else {
        m_complaint = read.failure().description;
    }
    return m_schema;
}

} // namespace schema
