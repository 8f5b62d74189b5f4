#include "app/windows/marcMain.h"
#include "database/connection.h"
#include "database/linkPool.h"
#include "platform/recentFiles.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"
#include <QAbstractEventDispatcher>
#include <QAction>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QProcess>
#include <QScrollBar>
#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace app;

namespace {

struct RecordedWindows final : CommandWindows {
    const ScriptedHost &host;
    QStringList calls;
    explicit RecordedWindows(const ScriptedHost &host)
        : host(host) {}
    void selectMarcFile(const QString &file) override { calls.append(u"select" + file); }
    void tidyFile(const QString &) override { calls.append(u"tidy"_s); }
    void fetchRecords() override { calls.append(u"fetch"_s); }
    void showTasks() override { calls.append(u"tasks"_s); }
    QString connectionText() const override {
        return text.isEmpty() ? u"Driver=SQLite3;Database=" + host.folder + u"/no.db" : text;
    }
    QString text;
    static QString count(const QueryLists &lists) { return QString::number(lists.columns.count(u',') + 1); }
    void queryCatalogue(const QueryLists &lists) override { calls.append(u"catalogue " + count(lists)); }
    void queryStore(const QueryLists &lists) override { calls.append(u"store " + count(lists)); }
    void splitFile() override { calls.append(u"split"_s); }
    void mergeFiles() override { calls.append(u"merge"_s); }
    void showHelp() override { calls.append(u"help"_s); }
    void showAbout() override { calls.append(u"about"_s); }
    void endRuns() override { calls.append(u"end "_s + QString::number(host.endings)); }
    void showNotice() override { calls.append(u"notice"_s); }
};

struct MainWindowTest : testing::Test {
    ScriptedHost host;
    RecordedWindows windows{host};
    marcMain frame{host, windows};

    QString callOf(const QString &name) {
        windows.calls.clear();
        frame.findChild<QAction *>(name)->trigger();
        return windows.calls.join(u'|');
    }
};

} // namespace

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

namespace {

// Connects to the strict server and disconnects at once, like a probe for a running server.
void knock() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(3306);
    ::inet_pton(AF_INET, "10.99.0.1", &address.sin_addr);
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    EXPECT_EQ(::connect(socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    ::close(socket);
}

} // namespace

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

// The test runs itself in a separate network namespace with a server that blocks a host after three failed connections.
TEST(MainWindowStarts, CountAsNoFailedConnection) {
    const QString text = qEnvironmentVariable("STRICT_SERVER");
    if (text.isEmpty()) {
        constexpr int notPermitted = 77;
        const int status = QProcess::execute(
            QStringLiteral(STRICT_SERVER_SCRIPT),
            {QCoreApplication::applicationFilePath(), u"--gtest_filter=MainWindowStarts.CountAsNoFailedConnection"_s});
        if (status == notPermitted)
            GTEST_SKIP() << "creating a network namespace requires root";
        ASSERT_EQ(status, 0);
        return;
    }
    const auto login = [&text] {
        database::LinkPool links;
        const auto opened = database::Connection::open(links, text);
        return opened ? QString() : opened.failure().description;
    };
    const ScriptedHost host;
    RecordedWindows windows(host);
    windows.text = text;
    for (int i = 0; i < 10; ++i) {
        ScriptedHost own;
        const marcMain frame(own, windows);
        EXPECT_TRUE(frame.databaseName->text().startsWith(u"数据库：library（10.99.0.1）"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !frame.databaseName->text().endsWith(u'…'); }));
    }
    EXPECT_EQ(login(), QString());
    // The server does block: failed connections count until a login succeeds.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        for (int i = 0; i < 10; ++i)
            knock();
        return login().contains(u"blocked");
    }));
}
