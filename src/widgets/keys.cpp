#include "widgets/keys.h"
#include <QCoreApplication>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

class EnterAsTab final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        sendTab(qobject_cast<QWidget *>(watched));
        return true;
    }
};

} // namespace

void sendTab(QWidget *from) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
    QCoreApplication::sendEvent(from, &press);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
    QCoreApplication::sendEvent(from, &release);
}

void enterActsAsTab(QWidget *control) {
    control->installEventFilter(new EnterAsTab(control));
}

} // namespace widgets
