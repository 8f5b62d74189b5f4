// The settings of the user: texts addressed by application, section and key. From its creation on, their file can be
// read only by its owner, since the connection text contains a password.
#pragma once

#include "platform/result.h"
#include <QString>

namespace platform {

// The application under which the program keeps its own settings.
inline constexpr QStringView settingsApplication = u"Tarvex集成系统";

class Settings {
public:
    // The settings of the user, or, for tests and tools, settings kept in `folder`.
    Settings();
    explicit Settings(const QString &folder);

    // Returns the stored text, or `fallback` if there is none or the file cannot be read.
    QString read(const QString &application, const QString &section, const QString &key, const QString &fallback) const;
    Status write(const QString &application, const QString &section, const QString &key, const QString &value) const;

private:
    QString m_folder;
};

} // namespace platform
