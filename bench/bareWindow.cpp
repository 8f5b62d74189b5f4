// A window of the toolkit with nothing in it: what every program's start is compared with.
#include <QApplication>
#include <QWidget>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.resize(1000, 700);
    window.show();
    return QApplication::exec();
}
