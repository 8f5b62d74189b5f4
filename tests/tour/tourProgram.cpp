#include "tour/tourProgram.h"
#include "app/program.h"
#include <QCoreApplication>
#include <thread>

namespace tour {

void TourHost::endProcess() {
    QCoreApplication::quit();
}

void runProgram(TourDriver &driver, const std::function<void(TourDriver &)> &script) {
    TourHost host{platform::Settings()};
    std::thread scriptThread([&] { script(driver); });
    app::runProgram(host);
    driver.programEnded();
    scriptThread.join();
}

} // namespace tour
