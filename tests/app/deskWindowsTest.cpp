// How the windows of the workspace work together, in the whole program.
#include "app/windows/marcMain.h"
#include "batch/windows/remarksPane.h"
#include "card/windows/frmMarcKaPian.h"
#include "database/storedConnection.h"
#include "import/windows/frmDaoRuJindu.h"
#include "platform/recentFiles.h"
#include "programSteps.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "targets/windows/frmSearch.h"
#include "tasks/windows/frmTasks.h"
#include "widgets/textBox.h"
#include "workspace/windows/cellControls.h"
#include "workspace/windows/frmDaoru.h"
#include "workspace/windows/frmSelectMFile.h"

using Desk = workspace::frmDaoru;

struct DeskWindowsTest : ProgramTest {
    const TestDatabase database;
    const TestFolder folder;
    app::marcMain *frame = nullptr;

    void SetUp() override {
        ASSERT_TRUE(database::storeConnection(host.settings(), database.connectionString()));
        host.onYield = [] { QCoreApplication::processEvents(); };
        steps.in(u"frmLook"_s, closes);
    }
    void inFrame(const std::function<void()> &act) {
        steps.in(u"marcMain"_s, [this, act](QWidget *front) {
            frame = qobject_cast<app::marcMain *>(front);
            act();
        });
    }
    void inDesk(const std::function<void(Desk &)> &act) {
        steps.in(u"frmDaoru"_s, [act](QWidget *front) { act(as<Desk>(front)); });
    }
    void quit() {
        inFrame([this] {
            host.willAnswer(platform::Answer::Yes);
            frame->close();
            QCoreApplication::exit(7);
        });
        EXPECT_EQ(run(), 7);
    }
};

TEST_F(DeskWindowsTest, TheStartPageOpensTheFileThatIsClicked) {
    const QString file = folder.file(u"a.iso"_s, "");
    platform::noteRecentFile(host.remembered(), file);
    host.remembered().keep(platform::kept::lookChoice, 2);
    inFrame([this] {
        EXPECT_EQ(frame->lookBox->currentIndex(), 2);
        frame->startPage->recent[0]->click();
    });
    steps.in(u"frmSelectMFile"_s, [&](QWidget *front) {
        EXPECT_EQ(as<workspace::frmSelectMFile>(front).Text1->text(), file);
        front->close();
    });
    inFrame([this] { frame->startPage->steps[0]->click(); });
    steps.in(u"frmSelectMFile"_s, [&](QWidget *front) {
        EXPECT_EQ(as<workspace::frmSelectMFile>(front).Text1->text(), u"");
        EXPECT_EQ(front->parentWidget(), frame);
        front->close();
    });
    inFrame([this] { frame->startPage->fetch->click(); });
    steps.in(u"frmSearch"_s, closes);
    inFrame([this] { frame->startPage->tasks->click(); });
    steps.in(u"frmTasks"_s, closes);
    inFrame([this] { Q_EMIT frame->lookBox->activated(1); });
    quit();
    EXPECT_EQ(host.remembered().value(platform::kept::lookChoice), 1);
}

// The store refuses a title that it already has; duplicates that a proof finds are left out, among the records that the
// import reaches.
TEST_F(DeskWindowsTest, RecordsThatAnImportDidNotTakeAreListed) {
    database.run(u"create unique index once on taoluTable (bookname)"_s);
    QString bytes;
    for (const auto &[title, isbn] : {std::pair(u"甲"_s, u"7-02-000220-X"_s), {u"甲"_s, u""_s}, {u"乙"_s, u""_s}})
        bytes += recordOf(u"001=1|010=  $a"_s + isbn + u"|200=1 $a" + title + u"$f著者") + u"\r\n";
    platform::noteRecentFile(host.remembered(), folder.file(u"a.iso"_s, platform::encode(bytes)));
    inFrame([this] { frame->startPage->recent[0]->click(); });
    steps.in(u"frmSelectMFile"_s, [](QWidget *front) { as<workspace::frmSelectMFile>(front).cmdClick[0]->click(); });
    inDesk([](Desk &desk) { desk.cmdclick[1]->click(); });
    steps.in(u"frmMarcKaPian"_s, [](QWidget *front) {
        auto &card = as<card::frmMarcKaPian>(front);
        for (int page = 0; page < 2; ++page)
            QTest::keyClick(card.Text1, Qt::Key_Right);
        EXPECT_TRUE(card.marcRecord.contains(u'乙')) << card.marcRecord.toStdString();
        card.close();
    });
    inDesk([](Desk &desk) { desk.cmdclick[5]->click(); });
    const auto ended = [](QWidget *front) {
        return as<importing::frmDaoRuJindu>(front).labJinDuShu->text() == u"处理完毕！";
    };
    steps.in(
        u"frmDaoRuJindu"_s, [](QWidget *front) { as<importing::frmDaoRuJindu>(front).cmdRefused->click(); }, ended);
    inDesk([this](Desk &desk) {
        auto *pane = desk.findChild<batch::RemarksPane *>();
        EXPECT_TRUE(pane->refusedTable->isVisible());
        EXPECT_EQ(pane->refusedTable->words->text(), u"未成功 1 条"_s);
        EXPECT_TRUE(desk.labStatus->text().contains(u"本次已导入 2 条，未成功 1 条，F8 列出"_s));
        desk.cmdProofAll->click();
        EXPECT_TRUE(pane->skipBox->isEnabled());
        pane->skipBox->setChecked(true);
        // Stopped after the first record.
        host.onYield = [] {
            QCoreApplication::processEvents();
            if (auto *run = qobject_cast<importing::frmDaoRuJindu *>(QApplication::activeModalWidget()))
                run->cmdStop->click();
        };
        desk.cmdclick[5]->click();
    });
    steps.in(u"frmDaoRuJindu"_s, closes, ended);
    inDesk([](Desk &desk) {
        EXPECT_TRUE(desk.labStatus->text().contains(u"本次已导入 0 条，跳过 1 条，F8 列出"_s))
            << desk.labStatus->text().toStdString();
        QTest::keyClick(desk.Grid1, Qt::Key_F9);
    });
    steps.in(u"frmTasks"_s, closes);
    inDesk([this](Desk &desk) {
        host.willAnswer(platform::Answer::Yes);
        desk.close();
    });
    steps.in(u"frmSelectMFile"_s, closes);
    quit();
    EXPECT_EQ(host.texts(), (QStringList{u"确实要退出吗？"_s, u"确定要退出系统吗？"_s}));
    EXPECT_EQ(database.column(u"select bookname from taoluTable order by zskid"_s), (QStringList{u"甲"_s, u"乙"_s}));
}
