#include "app/startUp.h"
#include "database/linkPool.h"
#include "database/storedConnection.h"
#include "platform/codepage936.h"
#include "support/scriptedHost.h"

using namespace app;

namespace {

struct StartUpTest : testing::Test {
    ScriptedHost host;
    database::LinkPool links;
    database::SessionState state{links, {}};
    QStringList shown;
    std::function<void()> inDialog = [] {};

    bool start(bool another = false, const platform::Status &codePage = platform::codePageReady()) {
        return startUp(host, {.codePage = codePage, .anotherInstanceRuns = another}, state,
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

TEST_F(StartUpTest, ASecondInstanceSaysSoAndEndsBeforeAnySettingIsRead) {
    store(u"DSN=x;"_s);
    EXPECT_FALSE(start(true, platform::codePageReady("no-such-code-page")));
    EXPECT_TRUE(host.lastBox().text.contains(u"no-such-code-page"_s)) << "before all else";
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
