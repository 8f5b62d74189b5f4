// The whole program with its real windows.
#include "app/windows/frmODBC.h"
#include "app/windows/marcMain.h"
#include "assist/windows/frmHelpLR.h"
#include "card/windows/frmMarcKaPian.h"
#include "catalogue/windows/queryFrm.h"
#include "catalogue/windows/tlkListFrm.h"
#include "database/storedConnection.h"
#include "handbook/windows/frmHandbook.h"
#include "import/windows/frmDaoRuJindu.h"
#include "platform/recentFiles.h"
#include "programSteps.h"
#include "proof/windows/frmMessage.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "tidy/windows/frmTidy.h"
#include "workspace/windows/cellControls.h"
#include "workspace/windows/frmDaoru.h"
#include "workspace/windows/frmSelectMFile.h"

TEST_F(ProgramTest, TheFirstRunStoresTheConnectionOnly) {
    steps.in(u"frmODBC"_s, [this](QWidget *front) {
        auto &dialog = as<app::frmODBC>(front);
        EXPECT_EQ(app::runProgram(host, links, claims.path()), 0) << "a second instance";
        dialog.cmdOK->click();
        dialog.txtServer->setText(u"S"_s);
        dialog.txtUID->setText(u"u"_s);
        dialog.txtDatabase->setText(u"d"_s);
        dialog.cmdCeshi->click();
        EXPECT_TRUE(host.lastBox().text.endsWith(u"\r\n请重试！！")) << host.lastBox().text.toStdString();
        host.boxes.removeLast();
        dialog.cmdOK->click();
    });
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(host.texts(), (QStringList{u"程序已经运行，不能再次装载。"_s, u"填写的信息不完整!请重新输入!"_s,
                                         u"请重新运行Quelt系统！"_s}));
    EXPECT_EQ(database::storedConnection(host.settings()),
              u"PROVIDER=MSDASQL;Driver=SQL Server;Server=S;UID=u;PWD=;Database=d;"_s);
}

TEST_F(ProgramTest, EveryCommandOpensItsWindow) {
    const TestDatabase database;
    ASSERT_TRUE(database::storeConnection(host.settings(), database.connectionString()));
    const TestFolder folder;
    const QString good = recordOf(u"001=1|100=  $a20260309|200=1 $a题|010=  $a7-5366-1234-5"_s);
    const QString file = folder.file(u"a.iso"_s, platform::encode(QString(good + u"\r\n"_s).repeated(2)));
    host.onYield = [] { QCoreApplication::processEvents(); };
    app::marcMain *frame = nullptr;
    steps.in(u"frmLook"_s, [&](QWidget *front) {
        EXPECT_TRUE(front->testAttribute(Qt::WA_DeleteOnClose));
        front->close();
    });
    steps.in(u"marcMain"_s, [&](QWidget *front) {
        frame = qobject_cast<app::marcMain *>(front);
        EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
        EXPECT_FALSE(QApplication::windowIcon().isNull());
        EXPECT_TRUE(frame->databaseName->text().startsWith(u"数据库：")) << frame->databaseName->text().toStdString();
        frame->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(frame));
        frame->startPage->handbook->click();
    });
    steps.in(u"frmHandbook"_s, closes);
    for (const auto &[action, window, asks] : {std::tuple(u"ChaiFenFile"_s, u"frmCutFile"_s, true),
                                               {u"HeBingFile"_s, u"frmUnionFile"_s, true},
                                               {u"aboutgongju"_s, u"frmHelp"_s, false},
                                               {u"mnuHelp"_s, u"AboutFrm"_s, false}}) {
        steps.in(u"marcMain"_s, triggers(action));
        steps.in(window, [this, asks = asks](QWidget *front) {
            if (asks)
                host.willAnswer(platform::Answer::Yes);
            front->close();
        });
    }
    steps.in(u"marcMain"_s, [&](QWidget *) { frame->startPage->tidy->click(); });
    steps.in(u"frmTidy"_s, closes);
    steps.in(u"marcMain"_s, [&](QWidget *) { frame->startPage->steps[0]->click(); });
    steps.in(u"frmSelectMFile"_s, [&](QWidget *front) {
        as<workspace::frmSelectMFile>(front).choose(file);
        as<workspace::frmSelectMFile>(front).cmdClick[0]->click();
    });
    // The windows of the workspace.
    using Desk = workspace::frmDaoru;
    const auto work = [&](const std::function<void(Desk &)> &act) {
        steps.in(u"frmDaoru"_s, [act](QWidget *front) { act(as<Desk>(front)); });
    };
    for (const auto &[button, mode] : {std::pair(0, u"标准"_s), {1, u"卡片"_s}}) {
        work([button = button](Desk &desk) { desk.cmdclick[button]->click(); });
        steps.in(u"frmMarcKaPian"_s, [mode = mode, good](QWidget *front) {
            EXPECT_EQ(as<card::frmMarcKaPian>(front).showMode, mode);
            EXPECT_TRUE(as<card::frmMarcKaPian>(front).marcRecord.contains(u'题'));
            front->close();
        });
    }
    work([](Desk &desk) { desk.cmdclick[2]->click(); });
    steps.in(u"frmMessage"_s, [](QWidget *front) {
        EXPECT_TRUE(as<proof::frmMessage>(front).messageText->text().contains(u"ISBN号校验位错误"));
        front->close();
    });
    for (const auto &[row, window] : {std::pair(1, u"frmHelpLR000"_s), {4, u"frmHelpLR100"_s}}) {
        work([row = row](Desk &desk) {
            desk.Grid1->setRow(row);
            QTest::keyClick(desk.Grid1, Qt::Key_Return);
            QTest::keyClick(static_cast<QWidget *>(desk.richText), Qt::Key_E, Qt::ControlModifier);
        });
        steps.in(window, closes);
    }
    work([this](Desk &desk) {
        EXPECT_FALSE(desk.labStatus->text().contains(u"不能导入"));
        // The end of the proof is reported in the status line if its pane is hidden.
        host.onYield = [&desk] { desk.findChild<QWidget *>(u"remarksPane"_s)->hide(); };
        desk.cmdProofAll->click();
        host.onYield = [] { QCoreApplication::processEvents(); };
        EXPECT_TRUE(desk.labStatus->text().contains(u"，F8 列出")) << desk.labStatus->text().toStdString();
        desk.cmdclick[5]->click();
    });
    steps.in(u"frmDaoRuJindu"_s, closes,
             [](QWidget *front) { return as<importing::frmDaoRuJindu>(front).labJinDuShu->text() == u"处理完毕！"; });
    work([this](Desk &desk) {
        EXPECT_TRUE(desk.labStatus->text().contains(u"本次已导入 2 条")) << desk.labStatus->text().toStdString();
        host.willAnswer(platform::Answer::Yes);
        desk.close();
    });
    steps.in(u"frmSelectMFile"_s, [](QWidget *front) { as<workspace::frmSelectMFile>(front).cmdTidy->click(); });
    steps.in(u"frmTidy"_s, [&](QWidget *front) {
        EXPECT_EQ(front->findChild<QLineEdit *>(u"Text10"_s)->text(), file);
        front->close();
    });
    steps.in(u"frmSelectMFile"_s, closes);
    // The rows of this import in the store, and the frame.
    database.run(u"insert into taoluTable (bookname) values ('另一种')"_s);
    steps.in(u"marcMain"_s, [&](QWidget *) {
        EXPECT_EQ(frame->startPage->recent.size(), 1);
        frame->startPage->steps[1]->click();
    });
    steps.in(u"QueryFrmdel"_s, [](QWidget *front) { as<catalogue::QueryDialog>(front).findData(); });
    steps.in(u"marcMain"_s, [](QWidget *front) {
        auto *list = front->findChild<catalogue::TLKListFrm *>();
        EXPECT_EQ(list->Grid1->rows(), 4);
        list->cmdThisImport->click();
        EXPECT_EQ(list->Grid1->rows(), 3);
        Q_EMIT list->Grid1->gridActivated();
    });
    steps.in(u"frmMarcKaPian"_s, [](QWidget *front) {
        EXPECT_EQ(as<card::frmMarcKaPian>(front).showMode, u"卡片"_s);
        front->close();
    });
    steps.in(u"marcMain"_s, [&](QWidget *front) {
        EXPECT_FALSE(frame->startPage->isVisible());
        front->findChild<catalogue::TLKListFrm *>()->close();
    });
    steps.in(
        u"marcMain"_s,
        [this](QWidget *front) {
            host.willAnswer(platform::Answer::Yes);
            front->close();
            EXPECT_EQ(host.endings, 1);
            QCoreApplication::exit(7);
        },
        [&](QWidget *) { return frame->startPage->isVisible(); });
    EXPECT_EQ(run(), 7);
    EXPECT_EQ(host.texts(),
              (QStringList{u"确实要退出吗？"_s, u"确实要退出吗？"_s, u"确实要退出吗？"_s, u"确定要退出系统吗？"_s}));
}
