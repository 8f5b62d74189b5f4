#include "app/deskWindows.h"

using namespace Qt::StringLiterals;

namespace app {

DeskWindows::DeskWindows(platform::Host &host, const platform::SessionState &state)
    : m_host(host)
    , m_state(state) {}

void DeskWindows::notProvided() {
    m_host.tell(u"暂无此功能"_s, u"操作提示"_s);
}

void DeskWindows::selectMarcFile() {
    notProvided();
}
void DeskWindows::queryCatalogue(const QueryLists &) {
    notProvided();
}
void DeskWindows::queryStore(const QueryLists &) {
    notProvided();
}
void DeskWindows::splitFile() {
    notProvided();
}
void DeskWindows::mergeFiles() {
    notProvided();
}
void DeskWindows::showHelp() {
    notProvided();
}
void DeskWindows::showAbout() {
    notProvided();
}
void DeskWindows::showNotice() {}

} // namespace app
