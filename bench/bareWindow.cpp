// A toolkit window that is empty or shows the text of its argument: the baseline for the start of every program.
#include <QApplication>
#include <QLabel>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QLabel window(QCoreApplication::arguments().value(1));
    window.resize(1000, 700);
    window.show();
    return QApplication::exec();
}
