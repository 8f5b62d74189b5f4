#include "platform/settings.h"
#include "platform/paths.h"
#include "platform/plainFile.h"
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr qint64 largestSettings = 1 << 20; // bytes; a few hundred are usual

QString fileOf(const QString &folder, const QString &application) {
    return folder + u'/' + application + u".ini"_s;
}

QString keyOf(const QString &section, const QString &key) {
    return section + u'/' + key;
}

bool storeAll(const QHash<QString, QVariant> &all, const QString &path) {
    QFile::remove(path);
    if (!makeOwnerFile(path))
        return false;
    QSettings store(path, QSettings::IniFormat);
    for (auto entry = all.cbegin(); entry != all.cend(); ++entry)
        store.setValue(entry.key(), entry.value());
    store.sync(); // holdsAll() finds out whether that failed
    return bool(makeOwnerFile(path));
}

bool holdsAll(const QHash<QString, QVariant> &all, const QString &path) {
    const QSettings store(path, QSettings::IniFormat);
    for (auto entry = all.cbegin(); entry != all.cend(); ++entry) {
        if (store.value(entry.key()) != entry.value())
            return false;
    }
    return true;
}

// QSettings caches a file by its time and size, so that it would take a new file with the same time and size for the
// old one.
void tellApart(const QString &made, const QString &standing) {
    const QDateTime after = QFileInfo(standing).lastModified().addMSecs(1);
    if (QFile file(made); QFileInfo(made).lastModified() < after && file.open(QIODevice::ReadWrite))
        file.setFileTime(after, QFileDevice::FileModificationTime);
}

} // namespace

Settings::Settings()
    : Settings(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/tarvex") {}

Settings::Settings(const QString &folder)
    : m_folder(folder) {}

QString Settings::read(const QString &application, const QString &section, const QString &key,
                       const QString &fallback) const {
    const QString path = fileOf(m_folder, application);
    if (!QFile::exists(path) || !smallOrMissing(path, largestSettings))
        return fallback;
    const QSettings store(path, QSettings::IniFormat);
    const QVariant value = store.value(keyOf(section, key));
    return store.status() == QSettings::NoError && value.isValid() ? value.toString() : fallback;
}

Status Settings::write(const QString &application, const QString &section, const QString &key,
                       const QString &value) const {
    if (!QDir().mkpath(m_folder))
        return Failure{u"无法建立设置文件夹 %1"_s.arg(m_folder)};
    const QString path = fileOf(m_folder, application);
    QString place = QFileInfo(path).canonicalFilePath(); // replaces the target of a link, not the link
    if (place.isEmpty())
        place = path;
    if (const Status small = smallOrMissing(place, largestSettings); !small)
        return small;
    QHash<QString, QVariant> all;
    const QSettings standing(place, QSettings::IniFormat);
    for (const QString &other : standing.allKeys())
        all.insert(other, standing.value(other));
    all.insert(keyOf(section, key), value);
    // A full disk must not destroy the existing settings: the new file is written next to the old one and replaces it
    // after it was read back and found complete. It cannot be a SavedFile, since QSettings writes only to a path.
    const QString made = place + u".making";
    const QString whole = place + u".made"; // another name, so that QSettings reads the disk and not its cache
    const bool stored = storeAll(all, made);
    tellApart(made, place);
    const bool replaced = stored && moveOver(made, whole) && holdsAll(all, whole) && moveOver(whole, place);
    QFile::remove(made);
    QFile::remove(whole);
    return replaced ? success() : Status(Failure{u"无法写入设置文件 %1"_s.arg(path)});
}

} // namespace platform
