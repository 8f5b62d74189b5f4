#include "platform/programFolder.h"
#include "platform/byteFile.h"
#include "platform/paths.h"
#include "platform/plainFile.h"
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStandardPaths>

#ifdef Q_OS_WIN
extern Q_CORE_EXPORT int qt_ntfs_permission_lookup;
#endif

using namespace Qt::StringLiterals;

namespace platform {

namespace {

using Sums = QMap<QString, QByteArray>; // sums of the files supplied last, by file name

constexpr QLatin1StringView between("  "); // between sum and name

bool mayWriteInto(const QString &folder) {
#ifdef Q_OS_WIN
    ++qt_ntfs_permission_lookup; // without this Qt checks only the read-only attribute
    const bool may = QFileInfo(folder).isWritable();
    --qt_ntfs_permission_lookup;
    return may;
#else
    return QFileInfo(folder).isWritable();
#endif
}

// The installer of Windows writes into a folder of the user, but replaces the files there when it is run again.
bool isInstalled(const QString &folder) {
    return QFileInfo::exists(folder + u"/uninstall.exe");
}

Result<QByteArray> bytesOf(const QString &path) {
    constexpr qint64 largest = 1 << 26; // a few thousand are usual
    return readSmallFile(path, largest);
}

Sums readSums(const QString &path) {
    Sums sums;
    if (const auto text = bytesOf(path)) {
        for (const QString &line : QString::fromUtf8(text.value()).split(u'\n')) {
            if (const auto gap = line.indexOf(between); gap > 0)
                sums.insert(line.mid(gap + between.size()), line.left(gap).toLatin1());
        }
    }
    return sums;
}

Status writeSums(const QString &path, const Sums &sums) {
    QByteArray text;
    for (auto sum = sums.cbegin(); sum != sums.cend(); ++sum)
        text += sum.value() + between.latin1() + sum.key().toUtf8() + '\n';
    return writeWholeFile(path, text);
}

bool isPresent(const QString &path) {
    const QFileInfo entry(path);
    return entry.exists() || entry.isSymLink(); // a dangling link belongs to the user too
}

struct Laying {
    Sums sums;
    LaidFiles laid;

    void note(const QString &path, const Status &done) {
        if (!done)
            laid.refused.append(path + u"：" + done.failure().description);
    }
    void lay(const QString &source, const QString &target, const QString &name);
};

void Laying::lay(const QString &source, const QString &target, const QString &name) {
    const auto brought = bytesOf(source);
    if (!brought)
        return note(source, brought.failure());
    const QByteArray sum = QCryptographicHash::hash(brought.value(), QCryptographicHash::Sha256).toHex();
    const QString beside = target + u".new";
    if (!isPresent(target)) {
        const Status written = writeWholeFile(target, brought.value());
        if (!written)
            return note(target, written);
        QFile::remove(beside);
    } else if (const auto standing = bytesOf(target);
               sum != sums.value(name) && !(standing && standing.value() == brought.value())) {
        const Status written = writeWholeFile(beside, brought.value());
        if (!written)
            return note(beside, written);
        laid.newer.append(beside);
    }
    sums.insert(name, sum);
}

} // namespace

QString programFolder(const QString &executableFolder, const QString &userFolder) {
    return mayWriteInto(executableFolder) && !isInstalled(executableFolder) ? executableFolder : userFolder;
}

QString programFolder() {
    return QDir::toNativeSeparators(
        programFolder(QCoreApplication::applicationDirPath(),
                      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/tarvex/program"));
}

LaidFiles layFiles(const QString &from, const QString &to, std::span<const QStringView> names) {
    if (isSameFile(from, to))
        return {};
    if (!QDir().mkpath(to))
        return {.newer = {}, .refused = {to + u"：无法建立文件夹"}};
    const QString source = pathWithSlash(from), target = pathWithSlash(to);
    const QString record = target + u"laid.txt";
    const Sums before = readSums(record);
    Laying laying{.sums = before, .laid = {}};
    for (const QStringView name : names)
        laying.lay(source + name, target + name, name.toString());
    if (laying.sums != before)
        laying.note(record, writeSums(record, laying.sums));
    return laying.laid;
}

} // namespace platform
