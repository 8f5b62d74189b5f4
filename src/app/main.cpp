#include "app/startUp.h"
#include "app/windows/program.h"
#include "database/linkPool.h"
#include "platform/desktop/qtHost.h"
#include <QApplication>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    database::LinkPool links(app::tableNames());
    platform::QtHost host(platform::Settings(), platform::DeskState(), [&links] { links.dropKept(); });
    return app::runProgram(host, links);
}
