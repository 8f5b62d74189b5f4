#include "app/windows/program.h"
#include "app/startUp.h"
#include "app/windows/deskWindows.h"
#include "app/windows/frmODBC.h"
#include "app/windows/handbookKey.h"
#include "app/windows/marcMain.h"
#include "database/connection.h"
#include "database/dataSources.h"
#include "platform/codepage936.h"
#include "platform/desktop/schemeWatch.h"
#include "platform/singleInstance.h"
#include "widgets/appearance.h"
#include "widgets/button.h"
#include "widgets/focusReader.h"
#include <QApplication>
#include <QIcon>
#include <optional>

using namespace Qt::StringLiterals;

namespace app {

namespace {

platform::Status probe(database::LinkPool &links, const QString &connectionString) {
    const auto connection = database::Connection::open(links, connectionString);
    if (!connection)
        return connection.failure();
    return platform::success();
}

} // namespace

int runProgram(platform::Host &host, database::LinkPool &links, const QString &claimFolder) {
    QApplication::setQuitOnLastWindowClosed(false); // the program ends only by the exit question
    QApplication::setWindowIcon(QIcon(QStringLiteral(TARVEX_PICTURE)));
    widgets::Appearance appearance(host.remembered());
    const widgets::FocusReader focusReader;
    const platform::SchemeWatch desktop;
    QObject::connect(&desktop, &platform::SchemeWatch::answered, &appearance, &widgets::Appearance::takeDesktop);
    const platform::SingleInstance instance(u"tarvex-marc"_s, claimFolder);
    database::SessionState state{links, {}};
    DeskWindows windows(host, state);
    HandbookKey handbook(host);
    std::optional<marcMain> frame;
    const StartUpFindings found{.codePage = platform::codePageReady(),
                                .anotherInstanceRuns = !instance.isFirst(),
                                .executableFolder = QCoreApplication::applicationDirPath()};
    const auto showConnectionDialog = [&] {
        const auto open = [&links](const QString &text) { return probe(links, text); };
        frmODBC(host, {.dataSources = database::dataSourceNames, .open = open}).exec();
    };
    const auto showMain = [&] {
        frame.emplace(host, windows);
        windows.setFrame(&*frame);
        frame->lookBox->setCurrentIndex(int(appearance.choice()));
        QObject::connect(frame->lookBox, &QComboBox::activated, &appearance,
                         [&appearance](int choice) { appearance.choose(widgets::Appearance::Choice(choice)); });
        QObject::connect(frame->startPage->handbook, &widgets::Button::clicked, &handbook, &HandbookKey::open);
        frame->show();
    };
    const bool goesOn =
        startUp(host, found, state, {.showConnectionDialog = showConnectionDialog, .showMain = showMain});
    return goesOn ? QApplication::exec() : 0;
}

} // namespace app
