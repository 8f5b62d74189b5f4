#include "platform/recentFiles.h"
#include "recordedWindows.h"
#include "widgets/styleTokens.h"

using namespace app;

TEST_F(MainWindowTest, MenuAndToolbarGiveTheSameCommands) {
    const std::tuple<QString, QString, QString> rows[] = {
        {u"mnuDaoru"_s, u"daoru"_s, u"select"_s},    {u"mnuDaochu"_s, u"daochu"_s, u"catalogue 8"_s},
        {u"mnuDelete"_s, u"delete"_s, u"store 7"_s}, {u"ChaiFenFile"_s, u"chaifen"_s, u"split"_s},
        {u"HeBingFile"_s, u"hebing"_s, u"merge"_s},  {u"aboutgongju"_s, u""_s, u"help"_s},
        {u"mnuHelp"_s, u""_s, u"about"_s},
    };
    for (const auto &[menu, key, call] : rows) {
        EXPECT_EQ(callOf(menu), call);
        EXPECT_EQ(callOf(key.isEmpty() ? menu : key), call);
    }
}

TEST_F(MainWindowTest, ItsPartsAreNamed) {
    EXPECT_EQ(frame.windowTitle(), u"Tarvex图书馆管理系统-----------marc处理工具"_s);
    EXPECT_EQ(frame.menuBar()->accessibleName(), u"菜单"_s);
    EXPECT_EQ(frame.Toolbar1->windowTitle(), u"工具栏"_s);
    EXPECT_FALSE(frame.Toolbar1->isMovable());
    EXPECT_EQ(frame.toolBarArea(frame.Toolbar1), Qt::TopToolBarArea);
    for (const MenuRow &row : menuRows)
        EXPECT_TRUE(row.menuName.isEmpty() || frame.findChild<QMenu *>(row.menuName.toString()));
    EXPECT_TRUE(frame.mdiArea->horizontalScrollBarPolicy() == Qt::ScrollBarAsNeeded &&
                frame.mdiArea->verticalScrollBarPolicy() == Qt::ScrollBarAsNeeded);
    EXPECT_FALSE(frame.statusBar()->isSizeGripEnabled());
    for (const ToolRow &row : toolRows) {
        const QAction *action = frame.findChild<QAction *>(row.key.toString());
        const QWidget *button = frame.Toolbar1->widgetForAction(frame.findChild<QAction *>(row.key.toString()));
        EXPECT_EQ(action->data().toString(), row.key);
        EXPECT_EQ(action->toolTip(), row.tip);
        EXPECT_EQ(button->accessibleName() + button->objectName(), row.caption + row.key);
        EXPECT_EQ(button->focusPolicy(), Qt::TabFocus);
    }
    EXPECT_EQ(frame.Toolbar1->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    EXPECT_EQ(frame.Toolbar1->iconSize().height(), 2 * frame.fontMetrics().height());
    QStringList looks;
    for (int i = 0; i < frame.lookBox->count(); ++i)
        looks.append(frame.lookBox->itemText(i));
    EXPECT_EQ(looks, (QStringList{u"外观：跟随系统"_s, u"外观：浅色"_s, u"外观：深色"_s}));
    const QSize room = frame.screen()->availableSize() * 9 / 10;
    EXPECT_EQ(frame.height(), std::min(room.height(), frame.fontMetrics().height() * 42));
    frame.show();
    EXPECT_TRUE(frame.statusBar()->isAncestorOf(frame.databaseName));
    EXPECT_TRUE(frame.databaseName->isVisible() && frame.lookBox->x() > frame.databaseName->geometry().right());
    EXPECT_TRUE(frame.databaseName->text().startsWith(u"⚠ 数据库："));
}

TEST_F(MainWindowTest, TheAreaFollowsThePalette) {
    for (const auto scheme : {widgets::Scheme::Dark, widgets::Scheme::Light}) {
        frame.setPalette(widgets::schemePalette(scheme));
        EXPECT_EQ(frame.mdiArea->background().color(), QColor(widgets::colourOf(widgets::Colour::Frame, scheme)));
    }
    const QPalette before = QApplication::palette();
    QApplication::setPalette(widgets::schemePalette(widgets::Scheme::Dark));
    EXPECT_EQ(marcMain(host, windows).mdiArea->background().color(),
              QColor(widgets::colourOf(widgets::Colour::Frame, widgets::Scheme::Dark)));
    QApplication::setPalette(before);
}

TEST_F(MainWindowTest, F10OpensTheMenuUnlessAWindowIsInFront) {
    showActive(frame);
    QTest::keyClick(&frame, Qt::Key_F10);
    EXPECT_EQ(frame.menuBar()->activeAction(), frame.menuBar()->actions().constFirst());
    EXPECT_TRUE(frame.menuBar()->hasFocus());
    QTest::keyClick(frame.menuBar(), Qt::Key_Escape);
    frame.menuBar()->setActiveAction(nullptr);
    QDialog modal(&frame);
    modal.setModal(true);
    modal.show();
    Q_EMIT frame.findChild<QShortcut *>()->activated();
    EXPECT_EQ(frame.menuBar()->activeAction(), nullptr);
}

// On a screen that is too narrow for the menus, the style sets them closer together.
TEST_F(MainWindowTest, TheMenusMoveTogetherOnANarrowScreen) {
    EXPECT_FALSE(frame.menuBar()->property("narrow").toBool());
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(3 * before.pointSizeF());
    QApplication::setFont(large);
    EXPECT_TRUE(marcMain(host, windows).menuBar()->property("narrow").toBool());
    QApplication::setFont(before);
}

// A file that was opened meanwhile is listed when the window of a step has closed.
TEST_F(MainWindowTest, TheStepsListTheRecentFilesAgain) {
    const TestFolder folder;
    int files = 0;
    windows.onCall = [&] { platform::noteRecentFile(host.remembered(), folder.file(QString::number(++files), "x")); };
    frame.show();
    frame.resize(800, 800);
    QApplication::processEvents();
    int before = frame.startPage->height();
    for (widgets::Button *step : {static_cast<widgets::Button *>(frame.startPage->steps[0]),
                                  static_cast<widgets::Button *>(frame.startPage->tidy),
                                  static_cast<widgets::Button *>(frame.startPage->fetch)}) {
        step->click();
        ASSERT_EQ(frame.startPage->recent.size(), files);
        QApplication::processEvents();
        QApplication::processEvents();
        EXPECT_GE(frame.startPage->height(), before);
        EXPECT_TRUE(frame.startPage->recent[0]->isVisible());
        before = frame.startPage->height();
    }
    EXPECT_EQ(files, 3);
    for (const int width : {800, 700}) { // as large as before, and smaller
        frame.resize(width, 800);
        QApplication::processEvents();
        QApplication::processEvents();
        const QRect page = frame.startPage->geometry();
        const QSize room = frame.mdiArea->viewport()->size();
        EXPECT_EQ(page.x(), (room.width() - page.width()) / 2);
        EXPECT_EQ(page.y(), (room.height() - page.height()) / 3);
    }
}

// As the frame gets lower, the margins shrink first; then the page scrolls.
TEST_F(MainWindowTest, NoCaptionOfTheStartPageIsCutInALowFrame) {
    frame.show();
    frame.resize(700, 700);
    QApplication::processEvents();
    const int spare = frame.mdiArea->viewport()->height() - frame.startPage->height();
    frame.resize(700, 700 - spare - 20);
    QApplication::processEvents();
    EXPECT_EQ(frame.startPage->verticalScrollBar()->maximum(), 0);
    for (const int height : {450, 350, 250}) {
        frame.resize(700, height);
        QApplication::processEvents();
        EXPECT_LT(frame.startPage->height(), height);
        for (const widgets::Button *entry : frame.startPage->steps)
            EXPECT_GE(entry->height(), entry->sizeHint().height()) << height;
    }
}

// Opening a file replaces the buttons of the recent files, but the clicked one is not deleted at once.
TEST_F(MainWindowTest, FilesOpenFromTheStartPageAndByDropping) {
    const TestFolder folder;
    for (const QString &name : {u"甲.iso"_s, u"乙.iso"_s})
        platform::noteRecentFile(host.remembered(), folder.file(name, "x"));
    frame.startPage->refresh();
    frame.show();
    ASSERT_EQ(frame.startPage->recent.size(), 2);
    const QSize whole = frame.startPage->fittedTo({300, 2000});
    EXPECT_LT(frame.startPage->fittedTo(whole - QSize(0, 1)).height(), whole.height() - 10);
    EXPECT_FALSE(frame.startPage->recent[1]->isVisible()) << "an entry without space is hidden";
    EXPECT_EQ(frame.startPage->fittedTo(whole), whole);
    const auto atRest = [] { return !QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents); };
    EXPECT_TRUE(QTest::qWaitFor(atRest)) << "the page must not be laid out again and again";
    windows.calls.clear();
    QTest::mouseClick(frame.startPage->recent[1], Qt::LeftButton);
    EXPECT_EQ(windows.calls, QStringList{u"select"_s + folder.path(u"甲.iso"_s)});
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(folder.path(u"乙.iso"_s))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction); // as a file manager proposes for files on the same disk
    QApplication::sendEvent(&frame, &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the file is not moved";
    EXPECT_TRUE(QTest::qWaitFor([&] { return windows.calls.contains(u"select"_s + folder.path(u"乙.iso"_s)); }));
}

TEST_F(MainWindowTest, TheNoticeAppearsOnceWhenTheFrameIsVisible) {
    frame.show();
    frame.hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(windows.calls, QStringList()) << "nothing has been painted yet";
    for (int showing = 0; showing < 2; ++showing) {
        frame.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&frame));
        frame.repaint();
        QCoreApplication::processEvents();
        frame.hide();
    }
    EXPECT_EQ(windows.calls, QStringList{u"notice"_s});
}

TEST_F(MainWindowTest, EveryWayToExitAsksOnceAndEndsOnlyWithYes) {
    frame.show();
    host.willAnswer(platform::Answer::No);
    frame.findChild<QAction *>(u"quit"_s)->trigger();
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(host.endings, 0);
    windows.calls.clear();
    host.willAnswer(platform::Answer::Yes);
    frame.resize(frame.size() - QSize(40, 30));
    frame.close();
    EXPECT_EQ(marcMain(host, windows).size(), frame.size()) << "a new frame has the size of the closed one";
    EXPECT_EQ(windows.calls, QStringList{u"end 0"_s}) << "the runs end before the process does";
    EXPECT_EQ(host.endings, 1);
    EXPECT_EQ(host.texts(), (QStringList{u"确定要退出系统吗？"_s, u"确定要退出系统吗？"_s}));
    EXPECT_EQ(host.lastBox().title, u"Tarvex图书馆管理系统-[退出]"_s);
    EXPECT_EQ(host.lastBox().icon, platform::Icon::Exclamation);
}

// The area reports the end of the lists while the frame is being deleted.
TEST(MainWindow, MayBeDeletedWithAListOpen) {
    ScriptedHost host;
    RecordedWindows windows(host);
    auto frame = std::make_unique<marcMain>(host, windows);
    frame->show();
    frame->area()->addSubWindow(new QWidget)->show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return frame->area()->activeSubWindow() && !windows.calls.isEmpty(); }));
    frame.reset();
    EXPECT_EQ(windows.calls, QStringList(u"notice"_s));
}
