#include "platform/plainFile.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#ifndef Q_OS_WIN
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr QFileDevice::Permissions ofOthers = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                                              QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;

Failure tooLarge(const QString &path, qint64 limit) {
    return Failure{u"%1 超过 %2 字节，没有读入"_s.arg(path).arg(limit)};
}

Failure notAFile(const QString &path, bool isFolder) {
    return Failure{u"%1 是%2，不是文件"_s.arg(path, isFolder ? u"文件夹"_s : u"管道或设备"_s)};
}

} // namespace

#ifdef Q_OS_WIN

Result<std::unique_ptr<QFile>> openPlainFile(const QString &path, QIODevice::OpenMode mode) {
    if (const Status plain = mayBecomeFile(path); !plain)
        return plain.failure();
    auto file = std::make_unique<QFile>(path);
    if (!file->open(mode | QIODevice::Unbuffered))
        return Failure{file->errorString(), int(file->error())};
    return Result<std::unique_ptr<QFile>>(std::move(file));
}

#else

Result<std::unique_ptr<QFile>> openPlainFile(const QString &path, QIODevice::OpenMode mode) {
    constexpr int withoutWaiting = O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    const int access = mode & QIODevice::WriteOnly ? O_WRONLY | O_CREAT : O_RDONLY;
    const int descriptor = ::open(QFile::encodeName(path).constData(), access | withoutWaiting, 0666);
    if (descriptor < 0)
        return Failure{qt_error_string(errno), errno};
    auto file = std::make_unique<QFile>(path);
    if (!file->open(descriptor, mode | QIODevice::Unbuffered, QFile::AutoCloseHandle)) {
        ::close(descriptor);
        return Failure{file->errorString(), int(file->error())};
    }
    struct stat entry = {};
    if (fstat(descriptor, &entry) != 0 || !S_ISREG(entry.st_mode))
        return notAFile(path, S_ISDIR(entry.st_mode));
    // Truncates only after the file is known to be a plain one, and only if it is not empty: some systems write a
    // truncated file to the disk when it is closed, and closing it waits for that.
    if (mode & QIODevice::Truncate && entry.st_size != 0 && !file->resize(0))
        return Failure{file->errorString(), int(file->error())};
    return Result<std::unique_ptr<QFile>>(std::move(file));
}

#endif

Status mayBecomeFile(const QString &path) {
    if (const QFileInfo standing(path); standing.exists() && !standing.isFile())
        return notAFile(path, standing.isDir());
    return success();
}

Result<QByteArray> readSmallFile(const QString &path, qint64 limit) {
    constexpr qint64 portion = 1 << 16;
    auto opened = openPlainFile(path, QIODevice::ReadOnly);
    if (!opened)
        return opened.failure();
    QFile &file = *opened.value();
    if (file.size() > limit)
        return tooLarge(path, limit);
    QByteArray bytes;
    while (true) { // the file may have grown after size() was read
        const QByteArray part = file.read(portion);
        if (part.isEmpty())
            break;
        bytes += part;
        if (bytes.size() > limit)
            return tooLarge(path, limit);
    }
    if (file.error() != QFileDevice::NoError)
        return Failure{file.errorString(), int(file.error())};
    return bytes;
}

Status smallOrMissing(const QString &path, qint64 limit) {
    if (const Status plain = mayBecomeFile(path); !plain)
        return plain;
    return QFileInfo(path).size() <= limit ? success() : Status(tooLarge(path, limit));
}

Status makeOwnerFolder(const QString &path) {
    constexpr QFileDevice::Permissions folderOfOwner = ownerOnly | QFileDevice::ExeOwner;
    const QString parent = QFileInfo(path).path();
    if (!QFileInfo(path).isDir() && !(QDir().mkpath(parent) && QDir().mkdir(path, folderOfOwner)))
        return Failure{u"无法建立文件夹 %1"_s.arg(path)};
    if (QFile::permissions(path) & ofOthers)
        QFile::setPermissions(path, folderOfOwner);
    if (!QFileInfo(path).isWritable())
        return Failure{u"文件夹 %1 不能写入"_s.arg(path)};
    return success();
}

Status makeOwnerFile(const QString &path) {
    if (const Status plain = mayBecomeFile(path); !plain)
        return plain;
    if (QFile file(path); !file.exists() && !file.open(QIODevice::WriteOnly | QIODevice::NewOnly, ownerOnly))
        return Failure{file.errorString(), int(file.error())};
    if (QFile file(path); file.permissions() & ofOthers && !file.setPermissions(ownerOnly))
        return Failure{file.errorString(), int(file.error())};
    return success();
}

QByteArrayView notTaken(QIODevice &device, QByteArrayView bytes) {
    qint64 written = 0;
    while (!bytes.isEmpty() && (written = device.write(bytes.data(), bytes.size())) > 0)
        bytes = bytes.sliced(written); // after a short write the next call sets the error
    return bytes;
}

} // namespace platform
