// The schema in force: the file that the user has chosen, or the one in the program's folder; and the checks that the
// user has not switched off.
#pragma once

#include "platform/deskState.h"
#include "platform/settings.h"
#include "schema/finding.h"
#include <QDateTime>
#include <memory>

namespace schema {

// Returns the path of the chosen schema; empty for the one in the program's folder.
QString chosenSchema(const platform::Settings &settings);
platform::Status chooseSchema(const platform::Settings &settings, const QString &path);

// Returns whether the user may switch the check off: those of Avram, but not the program's own.
inline bool maySwitchOff(Check check) {
    return check != Check::GivenUp;
}
// The checks that are enabled, kept between starts; at first all.
Checks chosenChecks(const platform::DeskState &state);
void chooseChecks(const platform::DeskState &state, Checks checks);

// Loads the schema at the first use and again after its file has changed. A schema that cannot be used does not replace
// the last valid one.
class SchemaInForce {
public:
    // `folder` is the program's own folder, with a separator at its end.
    SchemaInForce(platform::Settings settings, QString folder);

    // Returns the schema, or null if none could be read yet.
    std::shared_ptr<const Schema> schema();
    // Returns why the file was refused at the last call of schema(); empty if it was not.
    const QString &complaint() const { return m_complaint; }

    // The file that the schema in force was read from, and when. Empty if none could be read yet.
    const QString &path() const { return m_path; }
    const QDateTime &readAt() const { return m_readAt; }
    // Returns whether the user has chosen no other file than the one in the program's folder.
    bool isShipped() const { return chosenSchema(m_settings).isEmpty(); }

    // Reads the file and chooses it; an empty path chooses the file in the program's folder. If the file is refused or
    // the choice cannot be stored, nothing changes.
    platform::Status choose(const QString &path);

    Checks checks() const { return m_checks; }
    void setChecks(Checks checks) { m_checks = checks; }

private:
    // A file as it was when it was read, whether it was refused or not.
    struct SeenFile {
        QString path;
        QDateTime changed;
        qint64 size = -1;

        bool operator==(const SeenFile &) const = default;
    };
    static SeenFile lookAt(const QString &path);
    QString pathOf(const QString &chosen) const;
    void take(const SeenFile &file, Schema schema);

    platform::Settings m_settings;
    QString m_folder;
    SeenFile m_seen; // read last
    QString m_path;
    QDateTime m_readAt;
    std::shared_ptr<const Schema> m_schema;
    QString m_complaint;
    Checks m_checks = allChecks;
};

} // namespace schema
