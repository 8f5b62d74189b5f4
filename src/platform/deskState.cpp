#include "platform/deskState.h"
#include <QDir>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

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

QVariant DeskState::read(const QString &key) const {
    return QSettings(m_folder + u"/desk.ini", QSettings::IniFormat).value(key);
}

void DeskState::keep(const QString &key, const QVariant &value) const {
    if (read(key) == value || !QDir().mkpath(m_folder))
        return;
    QSettings(m_folder + u"/desk.ini", QSettings::IniFormat).setValue(key, value);
}

QString DeskState::folderFor(const QString &kind) const {
    const QString folder = m_folder + u'/' + kind;
    return QDir().mkpath(folder) ? QString(folder + u'/') : QString();
}

} // namespace platform
