// Settings, the single-instance claim, and paths.
#include "platform/deskState.h"
#include "platform/paths.h"
#include "platform/plainFile.h"
#include "platform/recentFiles.h"
#include "platform/settings.h"
#include "platform/singleInstance.h"
#include "support/testFolder.h"

using namespace platform;

namespace {

TEST(Settings, AreReadAsWritten) {
    const QTemporaryDir folder;
    const QString inside = folder.filePath(u"new/one"_s);
    const Settings settings(inside);
    EXPECT_EQ(settings.read(u"应用"_s, u"Setting"_s, u"Key"_s, u"none"_s), u"none");
    const QString file = inside + u"/应用.ini";
    for (const QString &value : {u"PROVIDER=MSDASQL;DSN=a,b;PWD=\"x;y\" "_s, u" 密码 %1@\\ "_s, u"@x\r\ny"_s, u""_s}) {
        ASSERT_TRUE(settings.write(u"应用"_s, u"Setting"_s, u"Key"_s, value));
        ASSERT_TRUE(settings.write(u"应用"_s, u"SystemInf"_s, u"Key"_s, u"1"_s));
        EXPECT_EQ(Settings(inside).read(u"应用"_s, u"Setting"_s, u"Key"_s, u"none"_s), value);
    }
    EXPECT_EQ(QDir(inside).entryList(QDir::Files | QDir::Hidden).size(), 1);
    EXPECT_FALSE(Settings(file + u"/below").write(u"a"_s, u"b"_s, u"c"_s, u"d"_s));
}

// QSettings takes a file of the same size and time for the one that it has cached.
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
    // An obstacle is not removed, and the settings stay.
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"应用.ini.making/x"_s));
    EXPECT_FALSE(write(u"3"_s));
    EXPECT_EQ(settings.read(u"应用"_s, u"a"_s, u"key"_s, u"none"_s), u"2");
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

TEST(RecentFiles, OfOneNameAreDistinguishedByTheirFolders) {
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

TEST(SingleInstance, IsOneUntilItEnds) {
    const QTemporaryDir folder;
    const QString name = u"instance-"_s + QString::number(QCoreApplication::applicationPid());
    {
        const SingleInstance mine(name, folder.path());
        EXPECT_TRUE(mine.isFirst());
        EXPECT_FALSE(SingleInstance(name, folder.path()).isFirst());
        EXPECT_TRUE(SingleInstance(name + u"another", folder.path()).isFirst());
    }
    EXPECT_TRUE(SingleInstance(name, folder.path()).isFirst());
}

TEST(Paths, UseTheSeparatorOfTheSystem) {
    EXPECT_EQ(pathWithSlash(u"C:\\a"_s, u'\\'), u"C:\\a\\");
    EXPECT_EQ(pathWithSlash(u"C:\\"_s, u'\\'), u"C:\\");
    EXPECT_EQ(pathWithSlash(u""_s, u'/'), u"/");
    EXPECT_EQ(folderOf(u"C:\\a\\b.iso"_s, u'\\'), u"C:\\a\\");
    EXPECT_EQ(folderOf(u"b.iso"_s, u'\\'), u"");
    // Windows takes both, also in one path; elsewhere '\\' is a character of a name.
    EXPECT_EQ(pathWithSlash(u"C:/a/"_s, u'\\'), u"C:/a/");
    EXPECT_EQ(folderOf(u"C:\\a/b.iso"_s, u'\\'), u"C:\\a/");
    EXPECT_EQ(folderOf(u"C:/a\\b.iso"_s, u'\\'), u"C:/a\\");
    EXPECT_EQ(folderOf(u"/a\\b.iso"_s, u'/'), u"/");
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
