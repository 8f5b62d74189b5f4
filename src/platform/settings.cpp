#include "platform/settings.h"
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

namespace platform {

namespace {

constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

QString fileOf(const QString &folder, const QString &application) {
    return folder + u'/' + application + QStringLiteral(".ini");
}

QString keyOf(const QString &section, const QString &key) {
    return section + u'/' + key;
}

} // namespace

Settings::Settings()
    : Settings(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/tarvex") {}

Settings::Settings(const QString &folder)
    : m_folder(folder) {}

QString Settings::read(const QString &application, const QString &section, const QString &key,
                       const QString &fallback) const {
    const QString path = fileOf(m_folder, application);
    if (!QFile::exists(path))
        return fallback;
    const QSettings store(path, QSettings::IniFormat);
    const QVariant value = store.value(keyOf(section, key));
    return store.status() == QSettings::NoError && value.isValid() ? value.toString() : fallback;
}

Status Settings::write(const QString &application, const QString &section, const QString &key,
                       const QString &value) const {
    const QString path = fileOf(m_folder, application);
    if (!QDir().mkpath(m_folder))
        return Failure{QStringLiteral("无法建立设置文件夹 %1").arg(m_folder)};
    if (!QFile::exists(path)) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, ownerOnly))
            return Failure{file.errorString(), int(file.error())};
    }
    QFile::setPermissions(path, ownerOnly);
    QSettings store(path, QSettings::IniFormat);
    store.setAtomicSyncRequired(false); // the file keeps its permissions only when it is written in place
    store.setValue(keyOf(section, key), value);
    store.sync();
    if (store.status() != QSettings::NoError)
        return Failure{QStringLiteral("无法写入设置文件 %1").arg(path), int(store.status())};
    return success();
}

} // namespace platform
