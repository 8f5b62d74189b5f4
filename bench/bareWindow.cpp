// A window of the toolkit with nothing in it, or with the text that it is called with: what every program's start is
// compared with.
#include <QApplication>
#include <QLabel>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QLabel window(QCoreApplication::arguments().value(1));
    window.resize(1000, 700);
    window.show();
    return QApplication::exec();
}
