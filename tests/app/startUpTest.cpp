#include "app/startUp.h"
#include "app/windows/frmODBC.h"
#include "database/linkPool.h"
#include "database/storedConnection.h"
#include "marc/configurationFiles.h"
#include "platform/codepage936.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"
#include <algorithm>

using namespace app;

namespace {

struct StartUpTest : testing::Test {
    ScriptedHost host;
    database::LinkPool links;
    database::SessionState state{links, {}};
    QString from = host.folder;
    QStringList shown;
    std::function<void()> inDialog = [] {};

    bool start(bool another = false, const platform::Status &codePage = platform::codePageReady()) {
        return startUp(host, {.codePage = codePage, .anotherInstanceRuns = another, .executableFolder = from}, state,
                       {.showConnectionDialog =
                            [this] {
                                shown.append(u"frmODBC"_s);
                                inDialog();
                            },
                        .showMain = [this] { shown.append(u"marcMain"_s); }});
    }
    void store(const QString &value) { ASSERT_TRUE(database::storeConnection(host.settings(), value)); }
};

} // namespace

TEST_F(StartUpTest, ASecondInstanceReportsItAndEndsBeforeAnySettingIsRead) {
    store(u"DSN=x;"_s);
    EXPECT_FALSE(start(true, platform::codePageReady("no-such-code-page")));
    EXPECT_TRUE(host.lastBox().text.contains(u"no-such-code-page"_s)) << "this check precedes all others";
    host.boxes.clear();
    EXPECT_FALSE(start(true));
    EXPECT_EQ(host.texts(), QStringList{u"程序已经运行，不能再次装载。"_s});
    EXPECT_EQ(host.lastBox().title, u"操作提示"_s);
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_TRUE(state.connectionString.isEmpty());
}

TEST_F(StartUpTest, AFirstRunEndsEvenWhenTheDialogHasSaved) {
    inDialog = [this] { store(u"DSN=x;"_s); };
    EXPECT_FALSE(start());
    EXPECT_EQ(shown, QStringList{u"frmODBC"_s});
    EXPECT_EQ(host.texts(), QStringList{u"请重新运行Quelt系统！"_s});
    EXPECT_EQ(host.lastBox().title, u"系统操作提示"_s);
    EXPECT_TRUE(start()) << "the next start finds the setting";
    EXPECT_EQ(shown.last(), u"marcMain"_s);
    EXPECT_EQ(state.connectionString, u"DSN=x;"_s);
}

TEST_F(StartUpTest, OnlyTheExactMarkerCountsAsAFirstRun) {
    store(u"notexsists"_s);
    EXPECT_TRUE(start());
    store(u"NotExsists"_s);
    EXPECT_FALSE(start());
    EXPECT_EQ(shown, (QStringList{u"marcMain"_s, u"frmODBC"_s}));
}

TEST_F(StartUpTest, TheConfigurationIsInstalledAndANewerOneReportedOnce) {
    const TestFolder brought;
    for (const QStringView name : marc::configurationFiles)
        brought.file(name.toString(), "1");
    from = brought.path();
    host.folder += u"/own"_s;
    EXPECT_FALSE(start() || start(true));
    EXPECT_FALSE(QFile::exists(host.folder)) << "a start that ends early installs nothing";
    store(u"DSN=x;"_s);
    host.boxes.clear();
    EXPECT_TRUE(start() && QFile::remove(brought.path(u"marcBJshuoming.Qvs"_s)));
    EXPECT_TRUE(host.boxes.isEmpty());
    brought.file(u"mobanJiaoDui.QVs"_s, "2");
    EXPECT_TRUE(start() && start());
    ASSERT_EQ(host.boxes.size(), 3) << "failures at each start, the newer file once";
    EXPECT_TRUE(host.boxes[1].text.endsWith(u"旁边：\r\n"_s + host.folder + u"/mobanJiaoDui.QVs.new"_s));
    EXPECT_TRUE(host.boxes[2].text.contains(u"marcBJshuoming.Qvs："_s));
    EXPECT_EQ(shown.count(u"marcMain"_s), 3);
}

TEST(ConnectionText, IsComposedAsTypedWithoutEscaping) {
    ConnectionFields driver{.driver = u"SQL Server"_s, .server = u"S"_s, .user = u"u"_s, .database = u"d"_s};
    EXPECT_EQ(composeConnectionString(driver), u"PROVIDER=MSDASQL;Driver=SQL Server;Server=S;UID=u;PWD=;Database=d;"_s);
    ConnectionFields source{.dataSourceChosen = true, .dataSource = u"lib"_s, .user = u"u"_s, .password = u"p;q"_s};
    EXPECT_EQ(composeConnectionString(source), u"PROVIDER=MSDASQL;DSN=lib;UID=u;PWD=p;q;"_s);
    source.database = u"typed before"_s;
    EXPECT_TRUE(composeConnectionString(source).endsWith(u"Database=typed before;"_s));
}

TEST(ConnectionText, NeedsEachValueOfItsKind) {
    const ConnectionFields whole{
        .dataSource = noDataSource.toString(), .driver = u"d"_s, .server = u"s"_s, .user = u"u"_s, .database = u"b"_s};
    EXPECT_EQ(checkConnectionFields(whole), std::nullopt);
    for (QString ConnectionFields::*field :
         {&ConnectionFields::driver, &ConnectionFields::server, &ConnectionFields::user, &ConnectionFields::database}) {
        ConnectionFields fields = whole;
        (fields.*field).clear();
        EXPECT_EQ(checkConnectionFields(fields), u"填写的信息不完整!请重新输入!"_s);
        fields.dataSource = u"lib"_s;
        EXPECT_EQ(checkConnectionFields(fields).has_value(), field == &ConnectionFields::user);
    }
}

TEST(ConnectionText, AFaultIsReportedByItsDescription) {
    const std::tuple<QString, QString, QString> rows[] = {
        {u"[x] LOGIN FAILED for user"_s, u"操作提示"_s, u"无效的参数，请再试一次！"_s},
        {u"the querytimeout property"_s, u"管理系统操作提示"_s, u"连接数据源超时\r\n请重试！！"_s},
        {u"no such file"_s, u"管理系统操作提示"_s, u"no such file\r\n请重试！！"_s},
    };
    for (const auto &[description, title, text] : rows) {
        EXPECT_EQ(messageForFault(description).title, title);
        EXPECT_EQ(messageForFault(description).text, text);
    }
}

TEST(ConnectionText, TheFirstRunListsTheDataSources) {
    EXPECT_EQ(dataSourceHint({}), u"没有现成的数据源，请见使用手册（F1）"_s);
    EXPECT_TRUE(dataSourceHint({u"a"_s}).startsWith(u"本机已有数据源：a。选一个"));
    EXPECT_TRUE(dataSourceHint(u"a b c"_s.split(u' ')).startsWith(u"本机已有数据源：a、b、c。"));
    EXPECT_TRUE(dataSourceHint(u"a b c d"_s.split(u' ')).startsWith(u"本机已有数据源：a、b、c 等 4 个。"));
}

namespace {

struct ConnectionDialogTest : testing::Test {
    ScriptedHost host;
    QStringList opened;
    QString fault;
    QStringList sources{u"lib"_s, u"   "_s, u"other"_s};
    frmODBC dialog{host,
                   {.dataSources = [this] { return sources; },
                    .open = [this](const QString &text) -> platform::Status {
                        opened.append(text);
                        EXPECT_EQ(dialog.fraStep3->title(), u"正在尝试连接数据库,请稍候......."_s);
                        return fault.isEmpty() ? platform::success() : platform::Failure{fault};
                    }}};

    std::optional<QString> stored() const { return database::storedConnection(host.settings()); }
    void choose(int index) {
        dialog.cboDSNList->setCurrentIndex(index);
        Q_EMIT dialog.cboDSNList->activated(index);
    }
};

} // namespace

TEST_F(ConnectionDialogTest, RefusesIncompleteInputReportsAFailedTestAndCancels) {
    EXPECT_EQ(dialog.cboDSNList->count(), 3) << "a blank name is omitted";
    EXPECT_TRUE(dialog.dataSourceWords->text().startsWith(u"本机已有数据源：lib、other。"));
    dialog.show();
    for (const QWidget *field : std::initializer_list<QWidget *>{dialog.cboDSNList, dialog.cboDrivers, dialog.txtServer,
                                                                 dialog.txtUID, dialog.txtPWD, dialog.txtDatabase}) {
        const auto labels = dialog.fraStep3->findChildren<QLabel *>();
        const auto label = std::ranges::find(labels, field, &QLabel::buddy);
        ASSERT_TRUE(label != labels.end()) << field->objectName().toStdString();
        EXPECT_TRUE((*label)->isVisible() && (*label)->geometry().right() < field->x());
    }
    EXPECT_EQ(dialog.cboDSNList->currentText() + dialog.cboDrivers->currentText(), u"(None)SQL Server"_s);
    EXPECT_TRUE(dialog.cmdOK->property("primary").toBool());
    dialog.cmdOK->click();
    EXPECT_EQ(dialog.focusWidget(), dialog.txtUID);
    choose(2);
    dialog.cmdCeshi->click();
    EXPECT_EQ(host.texts(), (QStringList{u"填写的信息不完整!请重新输入!"_s, u"用户名不能为空!请重新输入!"_s}));
    EXPECT_TRUE(opened.isEmpty());
    dialog.txtUID->setText(u"u"_s);
    fault = u"away"_s;
    QString title;
    host.onYield = [&] { title = dialog.fraStep3->title(); };
    host.onShow = [this] { EXPECT_NE(dialog.cursor().shape(), Qt::WaitCursor); };
    dialog.cmdCeshi->click();
    EXPECT_EQ(host.lastBox().text, u"away\r\n请重试！！"_s);
    EXPECT_EQ(dialog.fraStep3->title(), u"连接值"_s);
    EXPECT_EQ(title, u"正在尝试连接数据库,请稍候......."_s) << "painted while the connection is tried";
    dialog.cmdCancel->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(stored());
}

// Something other than a plain file is in the place of the settings.
TEST_F(ConnectionDialogTest, ReportsThatNothingIsStored) {
    const QFileInfo settings(QDir(host.folder).filePath(platform::settingsApplication + u".ini"));
    ASSERT_TRUE(QDir().mkpath(settings.filePath()));
    dialog.show();
    choose(1);
    dialog.txtUID->setText(u"u"_s);
    dialog.cmdOK->click();
    EXPECT_EQ(host.lastBox().text, settings.filePath() + u" 是文件夹，不是文件");
    EXPECT_EQ(host.lastBox().title, u"管理系统操作提示"_s);
    EXPECT_TRUE(dialog.isVisible());
}

TEST(ConnectionDialog, WrapsLongNamesAsPlainText) {
    ScriptedHost host;
    const frmODBC dialog(host, {.dataSources = [] { return QStringList(3, u"<b>library</b> "_s.repeated(9)); }});
    EXPECT_LT(dialog.sizeHint().width(), dialog.fontMetrics().horizontalAdvance(dialog.dataSourceWords->text()) / 2);
    EXPECT_EQ(dialog.dataSourceWords->textFormat(), Qt::PlainText);
}

// A chosen data source needs neither driver, server nor database.
TEST_F(ConnectionDialogTest, AChosenDataSourceDisablesWhatItReplaces) {
    showActive(dialog);
    dialog.cboDSNList->setFocus();
    WindowState state(dialog);
    choose(1);
    EXPECT_EQ(state.changes(), u"cboDSNList=lib; txtUID focus; cboDrivers txtDatabase txtServer off"_s);
    choose(1); // reported again, without the focus in the list
    EXPECT_EQ(state.changes(), u""_s);
    dialog.cboDSNList->setFocus();
    state.changes();
    choose(0);
    EXPECT_EQ(state.changes(), u"cboDSNList=(None); cboDrivers focus; cboDrivers txtDatabase txtServer on"_s);
    QStringList next;
    for (QWidget *control : std::initializer_list<QWidget *>{dialog.cboDrivers, dialog.txtServer, dialog.txtUID,
                                                             dialog.txtPWD, dialog.txtDatabase}) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        next.append(dialog.focusWidget()->objectName());
    }
    EXPECT_EQ(next.join(u' '), u"txtServer txtUID txtPWD txtDatabase cmdCeshi"_s);
    EXPECT_EQ(dialog.txtPWD->echoMode(), QLineEdit::Password);
    EXPECT_GE(dialog.txtServer->width(), dialog.fontMetrics().averageCharWidth() * 44);
    dialog.txtUID->setText(u"u"_s);
    choose(1);
    dialog.cmdCeshi->click();
    EXPECT_EQ(host.lastBox().text + host.lastBox().title, u"测试通过！\r\n请保存连接参数！系统提示"_s);
    EXPECT_TRUE(!stored() && dialog.isVisible());
    dialog.cmdOK->click();
    EXPECT_EQ(stored(), u"PROVIDER=MSDASQL;DSN=lib;UID=u;PWD=;"_s);
    EXPECT_FALSE(dialog.isVisible());
}
