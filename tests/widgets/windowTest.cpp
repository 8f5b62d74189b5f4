#include "widgets/window.h"
#include "support/qtPrinters.h"
#include <QShortcutEvent>

using namespace widgets;

// The key that opened a modal window and the next one may come in one breath: the second is for nobody behind it.
TEST(Button, AShortcutDoesNotReachBehindAModalWindow) {
    Window behind(u"behind"_s, {});
    Button button(u"cmd"_s, u"&Q 退出"_s, &behind);
    int clicks = 0;
    QObject::connect(&button, &Button::clicked, &behind, [&] { ++clicks; });
    behind.show();
    const auto pressOn = [](Button &receiver) {
        QShortcutEvent key(QKeySequence(Qt::ALT | Qt::Key_Q), 0);
        QApplication::sendEvent(&receiver, &key);
    };
    const auto press = [&] { pressOn(button); };
    press();
    EXPECT_EQ(clicks, 1);
    Window front(u"front"_s, {}, &behind);
    front.setModal(true);
    front.show();
    press();
    EXPECT_EQ(clicks, 1);
    Window beside(u"beside"_s, {}, &front); // not modal, and opened by the one that is
    Button live(u"cmd"_s, u"&Q 关闭"_s, &beside);
    QObject::connect(&live, &Button::clicked, &beside, &Window::unload);
    beside.show();
    pressOn(live);
    EXPECT_FALSE(beside.isVisible());
    front.close();
    press();
    EXPECT_EQ(clicks, 2);
}
