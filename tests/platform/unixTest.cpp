// Features that only Unix has: permissions, pipes and devices, accounts, signals.
#include "platform/byteFile.h"
#include "platform/byteWriter.h"
#include "platform/deskState.h"
#include "platform/plainFile.h"
#include "platform/programFolder.h"
#include "platform/settings.h"
#include "platform/singleInstance.h"
#include "platform/textFile.h"
#include "support/fullDisk.h"
#include "support/testFolder.h"
#include <array>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace platform;

namespace {

// Root can write everywhere; during the lifetime of this object, permission checks use an unprivileged real user ID.
struct PlainUser {
    PlainUser() { EXPECT_EQ(geteuid() == 0 ? setreuid(65534, 0) : 0, 0); }
    ~PlainUser() { EXPECT_EQ(setreuid(geteuid(), geteuid()), 0); }
};

TEST(Settings, AreReadOnlyByTheirOwnerAndSurviveAFullDisk) {
    const QTemporaryDir folder;
    const QString inside = folder.filePath(u"new/one"_s);
    const Settings settings(inside);
    const QString file = inside + u"/应用.ini";
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(settings.write(u"应用"_s, u"SystemInf"_s, u"Key"_s, u"1"_s));
        EXPECT_EQ(QFile::permissions(file) &
                      (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                  0);
        QFile::setPermissions(file, QFile::permissions(file) | QFile::ReadOther);
    }
    for (const int room : {0, 40, 60, 80}) {
        const FullDisk disk(room);
        EXPECT_FALSE(settings.write(u"应用"_s, u"Setting"_s, u"Key"_s, QString(100, u'x'))) << room;
        EXPECT_EQ(Settings(inside).read(u"应用"_s, u"SystemInf"_s, u"Key"_s, u"none"_s), u"1") << room;
        EXPECT_EQ(QDir(inside).entryList(QDir::Files | QDir::Hidden).size(), 1) << room;
    }
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

TEST(TextFile, SpecialFilesAreRefusedWithoutBlocking) {
    const TestFolder folder;
    const auto path = [&](const QString &name) { return folder.path(name); };
    const QString pipe = path(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0644), 0);
    ASSERT_TRUE(QFile::link(pipe, path(u"link"_s)));
    alarm(20); // ends an open() that waits
    for (const QString &name : {path(u"missing"_s), path(u"."_s), u"/proc/self/mem"_s, pipe, path(u"link"_s),
                                u"/dev/zero"_s, u"/dev/ptmx"_s}) {
        EXPECT_FALSE(countLines(name)) << name.toStdString();
        const auto lines = readTextLines(name);
        ASSERT_FALSE(lines) << name.toStdString();
        EXPECT_FALSE(lines.failure().description.isEmpty());
    }
    const int reader = open(QFile::encodeName(pipe).constData(), O_RDONLY | O_NONBLOCK); // allows a writer
    for (const QString &name : {path(u"missing/file"_s), path(u"."_s), pipe, path(u"link"_s), u"/dev/null"_s}) {
        EXPECT_FALSE(writeTextFile(name, u"x"_s)) << name.toStdString();
        EXPECT_FALSE(ByteWriter::create(name)) << name.toStdString();
    }
    close(reader);
    alarm(0);
    const QString plain = folder.file(u"file"_s, "a\rb");
    ASSERT_TRUE(QFile::link(plain, path(u"toPlain"_s)));
    EXPECT_EQ(readTextLines(path(u"toPlain"_s)).value(), (QStringList{u"a"_s, u"b"_s}));
}

TEST(SavedFile, OverwritesInAClosedFolderOnlyIfAsked) {
    const TestFolder folder;
    const QString path = folder.file(u"a"_s, "old");
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0666), 0);
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0555), 0);
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && setuid(65534) != 0) // the superuser may write anywhere
            _exit(9);
        const bool usual(writeWholeFile(path, "x")), inPlace(writeWholeFile(path, "new", Saving::InPlace));
        _exit(usual * 2 + inPlace);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    chmod(QFile::encodeName(folder.path()).constData(), 0755);
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(folder.read(u"a"_s), "new");
}

TEST(SavedFile, IsReadableByOthersUnlessAskedNotTo) {
    const TestFolder folder;
    for (const Saving saving : {Saving::OwnerOnly, Saving::InPlace}) {
        umask(022);
        const QString path = folder.path(u"for me"_s);
        ASSERT_TRUE(writeWholeFile(path, "x", saving));
        EXPECT_EQ(QFile::permissions(path).testFlag(QFile::ReadOther), saving != Saving::OwnerOnly);
        QFile::remove(path);
    }
}

TEST(ProgramFolder, IsTheUsersOwnIfTheExecutablesIsNotWritable) {
    const TestFolder folder;
    const QString from = folder.path(u"program"_s), to = folder.path(u"own"_s);
    ASSERT_TRUE(QDir().mkpath(from));
    EXPECT_EQ(programFolder(from, to), from);
    ASSERT_TRUE(QFile::setPermissions(from, QFile::ReadOwner | QFile::ExeOwner));
    {
        const PlainUser user;
        EXPECT_EQ(programFolder(from, to), to);
    }
    EXPECT_TRUE(QFile::setPermissions(from, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_TRUE(layFiles(from, from + u"/../program", std::array{QStringView(u"none")}).refused.isEmpty());
}

} // namespace
