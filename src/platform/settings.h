// The per-user settings store: texts addressed by application, section and key. The file that holds them is born
// readable by its owner alone, since the connection text carries a password.
#pragma once

#include "platform/result.h"
#include <QString>

namespace platform {

// The application under which the program keeps what is its own.
inline constexpr QStringView settingsApplication = u"Tarvex集成系统";

class Settings {
public:
    // The store of the user; or, for tests and tools, one in a folder of their own.
    Settings();
    explicit Settings(const QString &folder);

    // The stored text, or `fallback` where there is none or the store cannot answer.
    QString read(const QString &application, const QString &section, const QString &key, const QString &fallback) const;
    Status write(const QString &application, const QString &section, const QString &key, const QString &value) const;

private:
    QString m_folder;
};

} // namespace platform
