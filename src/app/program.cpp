#include "app/program.h"
#include "app/deskWindows.h"
#include "app/frmODBC.h"
#include "app/marcMain.h"
#include "app/startUp.h"
#include "platform/codepage936.h"
#include "platform/database/connection.h"
#include "platform/singleInstance.h"
#include <QApplication>
#include <QIcon>
#include <optional>

using namespace Qt::StringLiterals;

namespace app {

namespace {

platform::Status probe(const QString &connectionString) {
    const auto connection = platform::Connection::open(connectionString);
    if (!connection)
        return connection.failure();
    return platform::success();
}

} // namespace

int runProgram(platform::Host &host, const QString &claimFolder) {
    QApplication::setQuitOnLastWindowClosed(false); // only the exit question ends the program
    QApplication::setWindowIcon(QIcon(u":/program.svg"_s));
    const platform::SingleInstance instance(u"tarvex-marc"_s, claimFolder);
    platform::SessionState state;
    DeskWindows windows(host, state);
    std::optional<marcMain> frame;
    const bool goesOn =
        startUp(host, {.codePage = platform::codePageReady(), .anotherInstanceRuns = !instance.isFirst()}, state,
                {.showConnectionDialog =
                     [&] { frmODBC(host, {.dataSources = platform::dataSourceNames, .open = probe}).exec(); },
                 .showMain =
                     [&] {
                         frame.emplace(host, windows);
                         windows.setFrame(&*frame);
                         frame->show();
                     }});
    return goesOn ? QApplication::exec() : 0;
}

} // namespace app
