#include "app/startUp.h"
#include "app/windows/frmODBC.h"
#include "database/storedConnection.h"
#include "support/scriptedHost.h"

using namespace app;

TEST(ConnectionText, IsComposedAsTypedWithoutEscaping) {
    ConnectionFields driver{.driver = u"SQL Server"_s, .server = u"S"_s, .user = u"u"_s, .database = u"d"_s};
    EXPECT_EQ(composeConnectionString(driver), u"PROVIDER=MSDASQL;Driver=SQL Server;Server=S;UID=u;PWD=;Database=d;"_s);
    ConnectionFields source{.dataSourceChosen = true, .dataSource = u"lib"_s, .user = u"u"_s, .password = u"p;q"_s};
    EXPECT_EQ(composeConnectionString(source), u"PROVIDER=MSDASQL;DSN=lib;UID=u;PWD=p;q;"_s);
    source.database = u"typed before"_s;
    EXPECT_TRUE(composeConnectionString(source).endsWith(u"Database=typed before;"_s));
}

TEST(ConnectionText, AFaultIsToldByTheWordsOfItsDescription) {
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

TEST_F(ConnectionDialogTest, ADataSourceIsTestedSavedAndClosesTheDialog) {
    EXPECT_EQ(dialog.cboDSNList->count(), 3) << "a name of blanks is left out";
    dialog.show();
    dialog.txtDatabase->setText(u"before"_s);
    choose(1);
    EXPECT_FALSE(dialog.txtServer->isEnabled() || dialog.cboDrivers->isEnabled() || dialog.txtDatabase->isEnabled());
    dialog.txtUID->setText(u"u"_s);
    dialog.cmdCeshi->click();
    EXPECT_EQ(opened, QStringList{u"PROVIDER=MSDASQL;DSN=lib;UID=u;PWD=;Database=before;"_s});
    EXPECT_EQ(host.lastBox().text, u"测试通过！\r\n请保存连接参数！"_s);
    EXPECT_FALSE(stored()) << "a test does not save";
    dialog.cmdOK->click();
    EXPECT_EQ(stored(), opened.first());
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ConnectionDialogTest, RefusesWhatIsIncompleteTellsAFailedTestAndCancels) {
    dialog.show();
    dialog.cmdOK->click();
    choose(2);
    dialog.cmdCeshi->click();
    EXPECT_EQ(host.texts(), (QStringList{u"填写的信息不完整!请重新输入!"_s, u"用户名不能为空!请重新输入!"_s}));
    EXPECT_TRUE(opened.isEmpty());
    dialog.txtUID->setText(u"u"_s);
    fault = u"away"_s;
    host.onShow = [this] { EXPECT_NE(dialog.cursor().shape(), Qt::WaitCursor); };
    dialog.cmdCeshi->click();
    EXPECT_EQ(host.lastBox().text, u"away\r\n请重试！！"_s);
    EXPECT_EQ(dialog.fraStep3->title(), u"连接值"_s);
    dialog.cmdCancel->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(stored());
}
