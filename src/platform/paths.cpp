#include "platform/paths.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <filesystem>
#include <system_error>

namespace platform {

QString folderOf(const QString &path, QChar separator) {
    qsizetype last = path.lastIndexOf(separator);
    if (separator == u'\\')
        last = std::max(last, path.lastIndexOf(u'/'));
    return path.left(last + 1);
}

QString pathWithSlash(const QString &path, QChar separator) {
    return !path.isEmpty() && folderOf(path, separator) == path ? path : path + separator;
}

bool fileExists(const QString &path) {
    const QFileInfo info(path);
    return !path.isEmpty() && info.exists() && !info.isDir();
}

bool isSameFile(const QString &one, const QString &other) {
    std::error_code ignored; // a path that cannot be looked up is not the same file
    return std::filesystem::equivalent(one.toStdU16String(), other.toStdU16String(), ignored);
}

QStringList filesWithTwoWildcards(const QString &folder, const QString &prefix, const QString &suffix) {
    constexpr Qt::CaseSensitivity sensitivity =
        pathSeparator == u'\\' ? Qt::CaseInsensitive : Qt::CaseSensitive; // as in the system's file names
    QStringList found;
    const QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString &name : names) {
        if (name.size() == prefix.size() + 2 + suffix.size() && name.startsWith(prefix, sensitivity) &&
            name.endsWith(suffix, sensitivity))
            found.append(folder + name);
    }
    return found;
}

Status moveOver(const QString &from, const QString &to) {
    std::error_code error;
    std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), error);
    if (!error)
        return success();
    return Failure{QString::fromLocal8Bit(error.message().c_str()), error.value()};
}

Status removeFile(const QString &path) {
    QFile file(path);
    if (!file.remove())
        return Failure{file.errorString(), int(file.error())};
    return success();
}

} // namespace platform
