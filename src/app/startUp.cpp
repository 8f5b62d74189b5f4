#include "app/startUp.h"
#include "database/storedConnection.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace app {

QStringList tableNames() {
    return {u"taoluTable"_s, u"zsk"_s, u"sck"_s, u"jhsk"_s};
}

bool startUp(platform::Host &host, const StartUpFindings &found, database::SessionState &state,
             const StartUpWindows &windows) {
    if (!found.codePage) {
        host.tell(found.codePage.failure().description, platform::hintTitle, platform::Icon::Critical);
        return false;
    }
    if (found.anotherInstanceRuns) {
        host.tell(u"程序已经运行，不能再次装载。"_s);
        return false;
    }
    const std::optional<QString> stored = database::storedConnection(host.settings());
    if (!stored) {
        windows.showConnectionDialog();
        // The setting is not read again, even when the dialog has just written it: the next start finds it.
        host.tell(u"请重新运行Quelt系统！"_s, u"系统操作提示"_s);
        return false;
    }
    state.connectionString = *stored;
    windows.showMain();
    return true;
}

} // namespace app
