// Drives the whole program through its scenes (see tourDriver.h), or lets the monkey use it. Usage:
//   tour FOLDER-FOR-PICTURES [SCENE…]
//   tour FOLDER-FOR-PICTURES --monkey SEED SECONDS
// It detects other starts of the program only in TMPDIR, which scripts/stage sets to a folder of its own. "tour second"
// is another start, "tour FOLDER --kill RUN" a start that kills itself.
#include "app/startUp.h"
#include "app/windows/program.h"
#include "platform/desktop/qtHost.h"
#include "tour/errands.h"
#include "tour/longRuns.h"
#include "tour/scenes.h"
#include <QApplication>
#include <QDir>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

class TourHost final : public platform::QtHost {
public:
    using QtHost::QtHost;
    void endProcess() override { QCoreApplication::quit(); }
    bool openInShell(const QString &) override { return true; }
};

void playProgram() {
    database::LinkPool links(app::tableNames());
    TourHost host{platform::Settings()};
    app::runProgram(host, links, QDir::tempPath());
}

struct Scene {
    const char *name;
    void (*play)(tour::TourDriver &);
};

// Run in this order; scenes named on the command line run alone.
constexpr Scene scenes[] = {
    {"notices", tour::notices},     {"import", tour::readAndImport},
    {"edit", tour::edit},           {"card", tour::proofAndCard},
    {"catalogue", tour::catalogue}, {"store", tour::store},
    {"filetools", tour::fileTools}, {"tidy", tour::tidy},
    {"tasks", tour::changeBatch},   {"targets", tour::fetchRecords},
    {"desk", tour::deskGifts},      {"day", tour::aDay},
    {"handbook", tour::handbook},
};

bool isWanted(const Scene &scene, const QStringList &wanted) {
    return wanted.isEmpty() || wanted.contains(QLatin1StringView(scene.name));
}

int report(const tour::TourDriver &driver) {
    std::fprintf(stderr, "%d not as they should be\n", driver.failures());
    return driver.failures() == 0 ? 0 : 1;
}

} // namespace

void tour::runProgram(TourDriver &driver, const std::function<void(TourDriver &)> &script) {
    driver.programStarts();
    std::thread scriptThread([&] {
        script(driver);
        // A script that failed may leave the program waiting in a message box: the tour ends then.
        if (!driver.waitForEnd())
            std::_Exit(1);
    });
    playProgram();
    driver.programEnded();
    scriptThread.join();
}

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2)
        return 2;
    if (arguments[1] == u"second") {
        playProgram(); // without a script
        return 0;
    }
    tour::TourDriver driver(arguments[1]);
    const QStringList wanted = arguments.mid(2);
    if (wanted.value(0) == u"--monkey") {
        tour::monkey(driver, wanted.value(1).toUInt(), wanted.value(2).toInt());
        return report(driver);
    }
    if (wanted.value(0) == u"--kill") {
        tour::playUntilKilled(driver, wanted.value(1));
        return 1;
    }
    tour::runProgram(driver, tour::firstRun);
    if (wanted.isEmpty() || wanted.contains(u"kills"))
        tour::kills(driver);
    tour::runProgram(driver, [&wanted](tour::TourDriver &at) {
        tour::closeNotice(at);
        tour::shrinkCatalogue(at);
        for (const Scene &scene : scenes) {
            if (isWanted(scene, wanted))
                scene.play(at);
        }
        tour::leave(at);
    });
    return report(driver);
}
