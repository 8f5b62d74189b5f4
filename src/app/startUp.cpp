#include "app/startUp.h"
#include "database/storedConnection.h"
#include "marc/configurationFiles.h"
#include "platform/programFolder.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace app {

QStringList tableNames() {
    return {u"taoluTable"_s, u"zsk"_s, u"sck"_s, u"jhsk"_s};
}

namespace {

// Copies the configuration files to the program folder. Before any window is shown, reports newer files once and
// refused files at each start.
void layConfiguration(platform::Host &host, const QString &from) {
    const platform::LaidFiles laid = platform::layFiles(from, host.programFolder(), marc::configurationFiles);
    if (!laid.refused.isEmpty())
        host.tell(u"有文件没有放进程序的文件夹：\r\n"_s + laid.refused.join(u"\r\n"_s));
    if (!laid.newer.isEmpty())
        host.tell(u"程序带来了新的配置文件。您的文件没有改动，新的放在旁边：\r\n"_s + laid.newer.join(u"\r\n"_s));
}

} // namespace

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
        // The setting is not read again, even if the dialog has just written it; the next start reads it.
        host.tell(u"请重新运行Quelt系统！"_s, u"系统操作提示"_s);
        return false;
    }
    state.connectionString = *stored;
    layConfiguration(host, found.executableFolder);
    windows.showMain();
    return true;
}

} // namespace app
