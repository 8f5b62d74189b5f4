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
    const auto press = [&] {
        QShortcutEvent key(QKeySequence(Qt::ALT | Qt::Key_Q), 0);
        QApplication::sendEvent(&button, &key);
    };
    press();
    EXPECT_EQ(clicks, 1);
    Window front(u"front"_s, {}, &behind);
    front.setModal(true);
    front.show();
    press();
    EXPECT_EQ(clicks, 1);
    front.close();
    press();
    EXPECT_EQ(clicks, 2);
}
