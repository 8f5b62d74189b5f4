#include "app/startUp.h"

using namespace Qt::StringLiterals;

namespace app {

bool startUp(platform::Host &host, const StartUpFindings &found, platform::SessionState &state,
             const StartUpWindows &windows) {
    if (!found.codePage) {
        host.tell(found.codePage.failure().description, u"操作提示"_s, platform::Icon::Critical);
        return false;
    }
    if (found.anotherInstanceRuns) {
        host.tell(u"程序已经运行，不能再次装载。"_s, u"操作提示"_s);
        return false;
    }
    state.connectionString = host.settings().read(settingApplication.toString(), settingSection.toString(),
                                                  settingKey.toString(), settingAbsent.toString());
    if (state.connectionString == settingAbsent) {
        windows.showConnectionDialog();
        // The setting is not read again, even when the dialog has just written it: the next start finds it.
        host.tell(u"请重新运行Quelt系统！"_s, u"系统操作提示"_s);
        return false;
    }
    windows.showMain();
    return true;
}

} // namespace app
