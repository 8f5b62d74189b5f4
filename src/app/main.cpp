#include "app/program.h"
#include "platform/desktop/qtHost.h"
#include <QApplication>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    platform::QtHost host{platform::Settings()};
    return app::runProgram(host);
}
