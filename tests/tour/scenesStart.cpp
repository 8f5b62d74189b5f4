#include "database/storedConnection.h"
#include "tour/scenes.h"
#include <QApplication>
#include <QComboBox>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

QString storedSetting() {
    return database::storedConnection(platform::Settings()).value_or(u"nothing"_s);
}

} // namespace

void firstRun(TourDriver &driver) {
    if (!driver.waitForWindow(u"frmODBC"_s, u"first-run"_s))
        return;
    driver.expect(driver.textOf(u"dataSourceWords"_s).startsWith(u"本机已有数据源：TarvexLibrary。"), u"the hint"_s);
    askHandbook(driver, u"servers.md"_s, u"first-run"_s);
    driver.key(u"alt+c"_s).answerBox(u"填写的信息不完整!请重新输入!"_s, u"Return"_s, u"first-run-refused"_s);
    driver.click(u"cboDSNList"_s);
    driver.key(u"End Return"_s);
    driver.waitUntil(u"data source chosen"_s, [] {
        auto *sources = TourDriver::find<QComboBox>(u"cboDSNList"_s);
        return sources && sources->currentText() == u"TarvexLibrary" &&
               !TourDriver::find(u"txtServer"_s)->isEnabled() && TourDriver::find(u"txtUID"_s)->hasFocus();
    });
    driver.type(u"cataloguer"_s);
    driver.key(u"alt+c"_s).answerBox(u"测试通过！\r\n请保存连接参数！"_s, u"Return"_s, u"first-run-tested"_s);
    driver.expectEqual(storedSetting(), u"nothing"_s, u"the setting after a test"_s);
    driver.click(u"cmdOK"_s);
    driver.answerBox(u"请重新运行Quelt系统！"_s, u"Return"_s, u"first-run-saved"_s);
    driver.waitForEnd();
    driver.expectEqual(storedSetting(), u"PROVIDER=MSDASQL;DSN=TarvexLibrary;UID=cataloguer;PWD=;"_s, u"the setting"_s);
}

void closeNotice(TourDriver &driver) {
    driver.waitForWindow(u"frmLook"_s, u"notice"_s);
    driver.click(u"cmOK"_s);
    driver.waitUntilGone(u"frmLook"_s);
    driver.waitForWindow(u"marcMain"_s, u"main-window"_s);
}

void notices(TourDriver &driver) {
    QProcess second;
    second.start(QApplication::applicationFilePath(), {u"second"_s});
    driver.keyElsewhere(u"Return"_s);
    driver.expect(second.waitForFinished(10000), u"a second start ends"_s);
    driver.waitForWindow(u"marcMain"_s);
}

void leave(TourDriver &driver) {
    driver.waitForWindow(u"marcMain"_s);
    driver.click(u"quit"_s);
    driver.answerBox(u"确定要退出系统吗？"_s, u"Escape"_s, u"leave"_s); // Escape means No
    driver.expect(driver.look([] { return TourDriver::find(u"marcMain"_s) != nullptr; }), u"No keeps the program"_s);
    driver.openMenu(u"quitmnu"_s, u"mnuQuit"_s);
    driver.answerBox(u"确定要退出系统吗？"_s, u"y"_s);
    driver.waitForEnd();
}

} // namespace tour
