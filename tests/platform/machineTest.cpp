// Settings, the single-instance claim, and paths.
#include "platform/deskState.h"
#include "platform/paths.h"
#include "platform/plainFile.h"
#include "platform/recentFiles.h"
#include "platform/settings.h"
#include "platform/singleInstance.h"
#include "support/fullDisk.h"
#include "support/testFolder.h"
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace platform;

namespace {

TEST(Settings, AreReadAsWrittenAndOnlyByTheirOwner) {
    const QTemporaryDir folder;
    const QString inside = folder.filePath(u"new/one"_s);
    const Settings settings(inside);
    EXPECT_EQ(settings.read(u"应用"_s, u"Setting"_s, u"Key"_s, u"none"_s), u"none");
    const QString file = inside + u"/应用.ini";
    for (const QString &value : {u"PROVIDER=MSDASQL;DSN=a,b;PWD=\"x;y\" "_s, u" 密码 %1@\\ "_s, u"@x\r\ny"_s, u""_s}) {
        ASSERT_TRUE(settings.write(u"应用"_s, u"Setting"_s, u"Key"_s, value));
        ASSERT_TRUE(settings.write(u"应用"_s, u"SystemInf"_s, u"Key"_s, u"1"_s));
        EXPECT_EQ(Settings(inside).read(u"应用"_s, u"Setting"_s, u"Key"_s, u"none"_s), value);
        EXPECT_EQ(QFile::permissions(file) &
                      (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                  0);
        QFile::setPermissions(file, QFile::permissions(file) | QFile::ReadOther);
    }
    EXPECT_EQ(QDir(inside).entryList(QDir::Files | QDir::Hidden).size(), 1);
    for (const rlim_t room : {0, 40, 60, 80}) {
        const FullDisk disk(room);
        EXPECT_FALSE(settings.write(u"应用"_s, u"Setting"_s, u"Key"_s, QString(100, u'x'))) << room;
        EXPECT_EQ(Settings(inside).read(u"应用"_s, u"SystemInf"_s, u"Key"_s, u"none"_s), u"1") << room;
        EXPECT_EQ(QDir(inside).entryList(QDir::Files | QDir::Hidden).size(), 1) << room;
    }
    EXPECT_FALSE(Settings(file + u"/below").write(u"a"_s, u"b"_s, u"c"_s, u"d"_s));
}

// A start that ended early leaves a file.
TEST(Settings, ReplaceTheTargetOfALink) {
    const TestFolder folder;
    const Settings settings(folder.path());
    const auto read = [&](const QString &key) { return settings.read(u"应用"_s, u"a"_s, key, u"none"_s); };
    ASSERT_TRUE(QFile::link(folder.file(u"real.ini"_s, "[a]\nkey=0\n"), folder.path(u"应用.ini"_s)));
    for (const QString &value : {u"1"_s, u"2"_s, u"3"_s}) {
        folder.file(u"real.ini.making"_s, "[a]\nleft=1\n");
        ASSERT_TRUE(settings.write(u"应用"_s, u"a"_s, u"key"_s, value));
        EXPECT_EQ(read(u"key"_s) + read(u"left"_s), QString(value + u"none"));
    }
    EXPECT_TRUE(QFileInfo(folder.path(u"应用.ini"_s)).isSymLink());
}

// QSettings takes a file with the size and the time of the one that it knows for the same file.
TEST(Settings, AReplacedFileHasALaterTime) {
    const TestFolder folder;
    const Settings settings(folder.path());
    const QString file = folder.path(u"应用.ini"_s);
    const auto write = [&](const QString &value) { return bool(settings.write(u"应用"_s, u"a"_s, u"key"_s, value)); };
    ASSERT_TRUE(write(u"1"_s));
    const QDateTime future = QDateTime::currentDateTime().addSecs(1000);
    QFile standing(file);
    ASSERT_TRUE(standing.open(QIODevice::ReadWrite) && standing.setFileTime(future, QFileDevice::FileModificationTime));
    standing.close();
    ASSERT_TRUE(write(u"2"_s));
    EXPECT_EQ(QFileInfo(file).lastModified(), future.addMSecs(1));
    // What is in the way is not removed, and the settings stay.
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"应用.ini.making/x"_s));
    EXPECT_FALSE(write(u"3"_s));
    EXPECT_EQ(settings.read(u"应用"_s, u"a"_s, u"key"_s, u"none"_s), u"2");
}

// A pipe, a device or a huge file in place of a small file neither blocks nor fills the memory.
TEST(SmallFile, IsARegularOneWithinItsLimit) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"a"_s);
    const QString pipe = folder.filePath(u"pipe"_s);
    const QString device = folder.filePath(u"device"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0644), 0);
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, device));
    QFile made(file);
    ASSERT_TRUE(made.open(QIODevice::WriteOnly) && made.write("12345678") == 8 && made.flush());
    alarm(20); // ends an open() that waits for a writer
    EXPECT_EQ(readSmallFile(file, 8).value(), "12345678");
    EXPECT_FALSE(readSmallFile(file, 7));
    EXPECT_TRUE(smallOrMissing(file, 8) && !smallOrMissing(file, 7) && smallOrMissing(folder.filePath(u"none"_s), 0));
    EXPECT_FALSE(readSmallFile(u"/proc/self/mem"_s, 100)) << "reading fails";
    EXPECT_FALSE(readSmallFile(u"/proc/self/maps"_s, 100))
        << "its reported size is 0, its contents are longer than the limit";
    ASSERT_TRUE(made.resize(qint64(1) << 40)); // sparse: takes no disk space
    for (const QString &refused : {file, pipe, device, folder.path(), folder.filePath(u"none"_s)})
        EXPECT_FALSE(readSmallFile(refused, 1000)) << refused.toStdString();
    for (const QString &place : {file, pipe, device, folder.path()}) {
        for (const QString &name : {u"desk"_s, u"应用"_s}) {
            const QString ini = folder.filePath(name + u".ini");
            QFile::remove(ini);
            ASSERT_TRUE(QFile::link(place, ini));
        }
        DeskState(folder.path()).keep(kept::lastFolder, u"c"_s);
        EXPECT_EQ(DeskState(folder.path()).value(kept::lastFolder), u"") << place.toStdString();
        EXPECT_FALSE(Settings(folder.path()).write(u"应用"_s, u"a"_s, u"b"_s, u"c"_s)) << place.toStdString();
        EXPECT_EQ(Settings(folder.path()).read(u"应用"_s, u"a"_s, u"b"_s, u"none"_s), u"none") << place.toStdString();
    }
    alarm(0);
}

TEST(DeskState, IsPrivateAndReportsAFolderThatCannotBeMade) {
    constexpr QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const QTemporaryDir directory;
    const QString folder = directory.filePath(u"new/state"_s);
    const DeskState state(folder);
    const auto closed = [&](const QString &path) { return (QFile::permissions(path) & others) == 0; };
    for (const bool opened : {false, true}) { // created before the first write, as earlier versions did
        if (opened) {
            ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0755), 0);
            ASSERT_EQ(chmod(QFile::encodeName(folder + u"/desk.ini").constData(), 0644), 0);
        }
        state.keep(kept::listMaximised, u"list"_s, opened);
        EXPECT_EQ(DeskState(folder).value(kept::listMaximised, u"list"_s), opened);
        EXPECT_TRUE(closed(folder) && closed(folder + u"/desk.ini")) << opened;
    }
    EXPECT_EQ(state.folderFor(kept::drafts).value(), folder + u"/drafts/");
    EXPECT_TRUE(closed(folder + u"/drafts"));
    EXPECT_FALSE(DeskState(folder + u"/desk.ini").folderFor(kept::drafts)) << "a path below a file";
}

TEST(DeskState, IsInTheFolderThatTheEnvironmentNames) {
    const QTemporaryDir folder;
    const QByteArray home = qgetenv("HOME"), before = qgetenv("XDG_STATE_HOME");
    qputenv("HOME", QFile::encodeName(folder.path()));
    for (const auto &[named, used] : {std::pair(folder.filePath(u"own"_s), folder.filePath(u"own/tarvex"_s)),
                                      {u"relative"_s, folder.filePath(u".local/state/tarvex"_s)}}) {
        qputenv("XDG_STATE_HOME", QFile::encodeName(named));
        EXPECT_EQ(DeskState().folderFor(kept::drafts).value(), used + u"/drafts/");
    }
    qputenv("HOME", home);
    before.isNull() ? qunsetenv("XDG_STATE_HOME") : qputenv("XDG_STATE_HOME", before);
}

TEST(DeskState, ReadsWhatEarlierVersionsKept) {
    const QTemporaryDir folder;
    const DeskState state(folder.path());
    const QString list = u"ZSKListFrm"_s;
    struct Row {
        QString key;
        QVariant stored, read;
    };
    const auto rows = [&] {
        return std::to_array<Row>({
            {u"files/recent"_s, QStringList{u"/甲, 乙.iso"_s, u"/b.iso"_s}, state.value(kept::recentFiles)},
            {u"files/folder"_s, u"/资料"_s, state.value(kept::lastFolder)},
            {u"frmDaoru/across"_s, QByteArray("\0\xff", 2), state.value(kept::workspaceAcross)},
            {u"frmDaoru/down"_s, QByteArray(","), state.value(kept::workspaceDown)},
            {u"frmDaoru/under"_s, QByteArray("\""), state.value(kept::workspaceUnder)},
            {u"frmDaoru/whole"_s, true, state.value(kept::wholeTextShown)},
            {u"frmHandbook/across"_s, QByteArray("h"), state.value(kept::handbookAcross)},
            {u"ZSKListFrm/geometry"_s, QByteArray("g"), state.value(kept::geometry, list)},
            {u"ZSKListFrm/columns"_s, QVariantMap{{u"3"_s, 120}}, state.value(kept::columns, list)},
            {u"ZSKListFrm/size"_s, QSize(640, 480), state.value(kept::listSize, list)},
            {u"ZSKListFrm/position"_s, QPoint(7, 8), state.value(kept::listPosition, list)},
            {u"ZSKListFrm/maximised"_s, true, state.value(kept::listMaximised, list)},
        });
    };
    for (const Row &row : rows())
        QSettings(folder.filePath(u"desk.ini"_s), QSettings::IniFormat).setValue(row.key, row.stored);
    for (const Row &row : rows())
        EXPECT_TRUE(row.read == row.stored) << row.key.toStdString();
}

TEST(RecentFiles, OfOneNameAreToldApartByTheirFolders) {
    EXPECT_EQ(recentNames({u"/甲/2026/一月.iso"_s, u"/乙/2026/一月.iso"_s, u"/甲/一月.iso"_s, u"/甲/二月.iso"_s}),
              (QStringList{u"一月.iso（甲/2026）"_s, u"一月.iso（乙/2026）"_s, u"一月.iso（甲）"_s, u"二月.iso"_s}));
    EXPECT_EQ(recentNames({u"/甲/一月.iso"_s, u"/甲/甲/一月.iso"_s}),
              (QStringList{u"一月.iso（/甲）"_s, u"一月.iso（甲/甲）"_s}));
}

TEST(RecentFiles, AreTheLastOnesThatExistEachOnce) {
    const TestFolder folder;
    const DeskState state(folder.path(u"state"_s));
    QStringList noted;
    for (int i = 0; i < 12; ++i) {
        noted.prepend(folder.file(QString::number(i), {}));
        noteRecentFile(state, noted[0]);
    }
    EXPECT_EQ(recentFiles(state), noted.first(10));
    noteRecentFile(state, folder.path(u"./5"_s)); // another path of the same file
    noted.removeAll(folder.path(u"5"_s));
    noted.prepend(folder.path(u"5"_s));
    EXPECT_EQ(recentFiles(state), noted.first(10));
    QFile::remove(noted[0]);
    EXPECT_EQ(recentFiles(state)[0], noted[1]);
}

TEST(SingleInstance, IsReleasedWhenItsProcessDies) {
    const QTemporaryDir folder;
    const QString name = u"instance"_s;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        umask(077); // the claim must be visible to other accounts in spite of it
        const SingleInstance claim(name, folder.path());
        const char first = claim.isFirst() ? 'y' : 'n';
        std::ignore = write(ready[1], &first, 1);
        pause();
    }
    char first = 0;
    ASSERT_EQ(read(ready[0], &first, 1), 1);
    EXPECT_EQ(first, 'y');
    EXPECT_TRUE(QFile::permissions(folder.filePath(u"instance.lock"_s)).testFlag(QFile::ReadOther));
    qputenv("TMPDIR", folder.path().toLocal8Bit());
    EXPECT_NE(SingleInstance::machineFolder(), folder.path())
        << "the machine's folder does not depend on the account's TMPDIR";
    qunsetenv("TMPDIR");
    EXPECT_FALSE(SingleInstance(name, folder.path()).isFirst());
    EXPECT_TRUE(SingleInstance(u"another"_s, folder.path()).isFirst());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const SingleInstance mine(name, folder.path());
    EXPECT_TRUE(mine.isFirst());
    EXPECT_FALSE(SingleInstance(name, folder.path()).isFirst());
    close(ready[0]);
    close(ready[1]);
}

// Another user may create something with this name first; it neither blocks the start nor prevents it.
TEST(SingleInstance, IsNotBlockedByASpecialFile) {
    const QTemporaryDir folder;
    ASSERT_EQ(mkfifo(QFile::encodeName(folder.filePath(u"pipe.lock"_s)).constData(), 0644), 0);
    ASSERT_TRUE(QFile::link(folder.filePath(u"elsewhere"_s), folder.filePath(u"link.lock"_s)));
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"folder.lock"_s));
    alarm(20); // ends an open() that waits for a writer
    for (const QString &name : {u"pipe"_s, u"link"_s, u"folder"_s}) {
        errno = EWOULDBLOCK; // of an earlier call
        const SingleInstance claim(name, folder.path()), second(name, folder.path());
        EXPECT_TRUE(claim.isFirst() && second.isFirst()) << name.toStdString();
    }
    errno = EWOULDBLOCK;
    EXPECT_TRUE(SingleInstance(u"free"_s, folder.path()).isFirst());
    alarm(0);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"elsewhere"_s)));
}

TEST(Paths, UseTheSeparatorOfTheSystem) {
    EXPECT_EQ(pathWithSlash(u"C:\\a"_s, u'\\'), u"C:\\a\\");
    EXPECT_EQ(pathWithSlash(u"C:\\"_s, u'\\'), u"C:\\");
    EXPECT_EQ(pathWithSlash(u""_s, u'/'), u"/");
    EXPECT_EQ(folderOf(u"C:\\a\\b.iso"_s, u'\\'), u"C:\\a\\");
    EXPECT_EQ(folderOf(u"b.iso"_s, u'\\'), u"");
}

TEST(Paths, TwoCharactersOfAFileNameAreFree) {
    const TestFolder folder;
    for (const QString &name : {u"a01.iso"_s, u"a?[.iso"_s, u"a1.iso"_s, u"a001.iso"_s, u"A01.iso"_s, u"a01.is"_s,
                                u"b01.iso"_s, u".a01.iso"_s})
        folder.file(name, "x");
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"a02.iso"_s));
    EXPECT_EQ(filesWithTwoWildcards(folder.path(), u"a"_s, u".iso"_s),
              (QStringList{folder.path(u"a01.iso"_s), folder.path(u"a?[.iso"_s)}));
    EXPECT_EQ(filesWithTwoWildcards(folder.path(), u".a"_s, u".iso"_s), QStringList{folder.path(u".a01.iso"_s)});
}

TEST(Paths, OnlyFilesExistAndAreRemovedOnce) {
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"a.iso"_s);
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    EXPECT_TRUE(fileExists(file));
    ASSERT_TRUE(removeFile(file));
    EXPECT_FALSE(removeFile(file));
    for (const QString &none : {file, directory.path(), u""_s})
        EXPECT_FALSE(fileExists(none)) << none.toStdString();
}

} // namespace
