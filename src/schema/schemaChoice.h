// The schema in force: the file that the user has chosen, or the one in the program's folder.
#pragma once

#include "platform/settings.h"
#include "schema/schema.h"
#include <QDateTime>
#include <memory>

namespace schema {

// Returns the path of the chosen schema; empty for the one in the program's folder.
QString chosenSchema(const platform::Settings &settings);
platform::Status chooseSchema(const platform::Settings &settings, const QString &path);

// Loads the schema at the first use and again after its file has changed. A schema that cannot be used leaves the last
// good one in force.
class SchemaInForce {
public:
    // `folder` is the program's own folder, with a separator at its end.
    SchemaInForce(platform::Settings settings, QString folder);

    // Returns the schema, or null if none could be read yet.
    std::shared_ptr<const Schema> schema();
    // Returns why the file was refused at the last call of schema(); empty if it was not.
    const QString &complaint() const { return m_complaint; }

private:
    platform::Settings m_settings;
    QString m_folder;
    QString m_path; // of the file read last
    QDateTime m_changed;
    qint64 m_size = -1;
    std::shared_ptr<const Schema> m_schema;
    QString m_complaint;
};

} // namespace schema
