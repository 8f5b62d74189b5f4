// The tour through the whole program; see tourDriver.h. Usage: tour FOLDER-FOR-PICTURES
#include "tour/scenes.h"
#include "tour/tourProgram.h"
#include <QApplication>
#include <cstdio>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    if (argc != 2)
        return 2;
    tour::TourDriver driver(QString::fromLocal8Bit(argv[1]));
    tour::runProgram(driver, tour::firstRun);
    tour::runProgram(driver, [](tour::TourDriver &at) {
        tour::notices(at);
        tour::readAndImport(at);
        tour::edit(at);
        tour::proofAndCard(at);
        tour::catalogue(at);
        tour::store(at);
        tour::fileTools(at);
        tour::leave(at);
    });
    std::fprintf(stderr, "%d not as they should be\n", driver.failures());
    return driver.failures() == 0 ? 0 : 1;
}
