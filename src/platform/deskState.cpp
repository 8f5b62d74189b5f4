#include "platform/deskState.h"
#include "platform/plainFile.h"
#include <QDir>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr qint64 largestState = 1 << 20; // bytes; a few thousand are usual

QString userFolder() {
#ifdef Q_OS_WIN
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/tarvex/state";
#else
    const QString told = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(told) ? told : QString(QDir::homePath() + u"/.local/state")) + u"/tarvex";
#endif
}

} // namespace

DeskState::DeskState()
    : DeskState(userFolder()) {}

DeskState::DeskState(const QString &folder)
    : m_folder(folder) {}

QString DeskState::file() const {
    return m_folder + u"/desk.ini";
}

QVariant DeskState::read(const QString &key) const {
    if (!smallOrMissing(file(), largestState))
        return {};
    return QSettings(file(), QSettings::IniFormat).value(key);
}

void DeskState::write(const QString &key, const QVariant &value) const {
    if (!smallOrMissing(file(), largestState) || read(key) == value)
        return;
    if (makeOwnerFolder(m_folder) && makeOwnerFile(file()))
        QSettings(file(), QSettings::IniFormat).setValue(key, value);
}

Result<QString> DeskState::folderFor(const KeptFolder &folder) const {
    const QString path = m_folder + u'/' + folder.name;
    for (const QString &made : {m_folder, path})
        if (const Status status = makeOwnerFolder(made); !status)
            return status.failure();
    return QString(path + u'/');
}

} // namespace platform
