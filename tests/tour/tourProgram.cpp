#include "tour/tourProgram.h"
#include "app/startUp.h"
#include "app/windows/program.h"
#include <QCoreApplication>
#include <QDir>
#include <cstdlib>
#include <thread>

namespace tour {

void TourHost::endProcess() {
    QCoreApplication::quit();
}

bool TourHost::openInShell(const QString &target) {
    Q_UNUSED(target)
    return true;
}

void runProgram(TourDriver &driver, const std::function<void(TourDriver &)> &script) {
    database::LinkPool links(app::tableNames());
    TourHost host{platform::Settings()};
    driver.programStarts();
    std::thread scriptThread([&] {
        script(driver);
        // A script that went astray leaves the program standing behind some box: the tour is over then.
        if (!driver.waitForEnd())
            std::_Exit(1);
    });
    app::runProgram(host, links, QDir::tempPath());
    driver.programEnded();
    scriptThread.join();
}

void runSecondProgram() {
    database::LinkPool links(app::tableNames());
    TourHost host{platform::Settings()};
    app::runProgram(host, links, QDir::tempPath());
}

} // namespace tour
