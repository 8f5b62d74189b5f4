#include "platform/programFolder.h"
#include "support/fullDisk.h"
#include "support/testFolder.h"
#include <array>

using namespace platform;

namespace {

struct ProgramFolderTest : testing::Test {
    TestFolder folder;
    const QString from = folder.path(u"program"_s), to = folder.path(u"data/user/own"_s);

    ProgramFolderTest() {
        EXPECT_TRUE(QDir().mkpath(from));
        bring("one\r\n");
    }
    void bring(const QByteArray &first) const {
        folder.file(u"program/a.Qvs"_s, first);
        folder.file(u"program/b.QVs"_s, "two\r\n");
    }
    LaidFiles lay() const { return layFiles(from, to, std::array{QStringView(u"a.Qvs"), QStringView(u"b.QVs")}); }
    QByteArray own(const QString &name) const { return folder.read(u"data/user/own/"_s + name); }
    QStringList standing() const { return QDir(to).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    // Checks what the next start installs and reports.
    void expectLaid(const QStringList &newer, const QStringList &files, const char *when) const {
        const LaidFiles laid = lay();
        EXPECT_EQ(laid.newer, newer) << when;
        EXPECT_EQ(laid.refused, QStringList()) << when;
        EXPECT_EQ(standing(), files + QStringList{u"laid.txt"_s}) << when;
    }
};

} // namespace

TEST_F(ProgramFolderTest, IsTheUsersOwnAfterAnInstallation) {
    EXPECT_EQ(programFolder(from, to), from);
    folder.file(u"program/uninstall.exe"_s, {});
    EXPECT_EQ(programFolder(from, to), to);
}

TEST_F(ProgramFolderTest, AnInstalledFileIsTheUsersAndANewerOneIsReportedOnce) {
    const QStringList files{u"a.Qvs"_s, u"b.QVs"_s}, withNewer{u"a.Qvs"_s, u"a.Qvs.new"_s, u"b.QVs"_s};
    const QStringList newer{folder.path(u"data/user/own/a.Qvs.new"_s)};
    expectLaid({}, files, "first start");
    EXPECT_EQ(own(u"b.QVs"_s), "two\r\n");
    folder.file(u"data/user/own/a.Qvs"_s, "mine");
    expectLaid({}, files, "changed by the user");
    bring("newer");
    expectLaid(newer, withNewer, "brought by a package");
    expectLaid({}, withNewer, "reported before");
    bring("newest");
    expectLaid(newer, withNewer, "another newer file");
    EXPECT_EQ(own(u"a.Qvs"_s) + '/' + own(u"a.Qvs.new"_s), "mine/newest");
    ASSERT_TRUE(QFile::remove(to + u"/laid.txt"));
    expectLaid(newer, withNewer, "the list of reported files is lost");
    ASSERT_TRUE(QFile::remove(to + u"/a.Qvs"));
    expectLaid({}, files, "the user has removed the file");
    EXPECT_EQ(own(u"a.Qvs"_s), "newest");
    bring("last");
    folder.file(u"data/user/own/a.Qvs"_s, "last");
    expectLaid({}, files, "the user already has this version");
}

TEST_F(ProgramFolderTest, AFailedCopyIsReportedAndRepeatedAtTheNextStart) {
    bring(QByteArray(100, 'x'));
    {
        const FullDisk disk(50);
        const LaidFiles laid = lay();
        ASSERT_EQ(laid.refused.size(), 2) << "the long file and laid.txt";
        EXPECT_TRUE(laid.refused[0].startsWith(to + u"/a.Qvs："));
        EXPECT_EQ(standing(), QStringList{u"b.QVs"_s});
    }
    expectLaid({}, {u"a.Qvs"_s, u"b.QVs"_s}, "with enough space");
    ASSERT_TRUE(QFile::remove(from + u"/b.QVs"));
    EXPECT_TRUE(lay().refused.value(0).startsWith(from + u"/b.QVs："));
    const QString file = folder.file(u"file"_s, {});
    EXPECT_EQ(layFiles(from, file + u"/below", {}).refused.size(), 1);
}
