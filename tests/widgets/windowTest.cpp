#include "widgets/window.h"
#include "support/qtPrinters.h"
#include "support/showActive.h"
#include "widgets/button.h"
#include "widgets/foldingRow.h"
#include <QTest>

using namespace widgets;

// The key that opens a modal window may be followed at once by another one, which must not reach the blocked window.
TEST(Button, AShortcutDoesNotReachAWindowBlockedByAModalOne) {
    Window behind(u"behind"_s, {});
    Button button(u"cmd"_s, u"&Q 退出"_s, &behind);
    int clicks = 0;
    QObject::connect(&button, &Button::clicked, &behind, [&] { ++clicks; });
    behind.show();
    const auto pressOn = [](Button &receiver) {
        QShortcutEvent key(QKeySequence(Qt::ALT | Qt::Key_Q), 0);
        EXPECT_TRUE(QApplication::sendEvent(&receiver, &key)) << "the key goes no further";
    };
    const auto press = [&] { pressOn(button); };
    press();
    EXPECT_EQ(clicks, 1);
    Window front(u"front"_s, {}, &behind);
    front.setModal(true);
    front.show();
    press();
    EXPECT_EQ(clicks, 1);
    Window beside(u"beside"_s, {}, &front); // not modal, opened by the modal window
    Button live(u"cmd"_s, u"&Q 关闭"_s, &beside);
    QObject::connect(&live, &Button::clicked, &beside, &Window::unload);
    beside.show();
    pressOn(live);
    EXPECT_FALSE(beside.isVisible());
    front.close();
    press();
    EXPECT_EQ(clicks, 2);
}

// The field's handler for losing the focus runs before the command. After the command the field has the focus again,
// even if the command showed a modal window, unless the command moved the focus or closed the window.
TEST(Button, AnAccessKeyGivesTheFocusBack) {
    Window window(u"window"_s, {});
    QLineEdit field(&window);
    QLineEdit other(&window);
    Button button(u"cmd"_s, u"&N 下一条"_s, &window);
    QStringList events;
    std::function<void()> command;
    QObject::connect(&field, &QLineEdit::editingFinished, &window, [&] { events.append(u"left"_s); });
    QObject::connect(&button, &Button::clicked, &window, [&] {
        events.append(u"clicked"_s);
        if (command)
            command();
    });
    showActive(window);
    const auto focusAfter = [&](std::function<void()> act) {
        command = std::move(act);
        field.setEnabled(true);
        other.setEnabled(true);
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_X);
        events.clear();
        QTest::keyClick(&field, Qt::Key_N, Qt::AltModifier);
        EXPECT_EQ(events, (QStringList{u"left"_s, u"clicked"_s}));
        return window.focusWidget();
    };
    EXPECT_EQ(focusAfter({}), &field);
    EXPECT_EQ(focusAfter([&] {
                  Window box(u"box"_s, {}, &window);
                  QLineEdit inside(&box);
                  QTimer::singleShot(0, &box, [&] { box.close(); });
                  box.exec();
              }),
              &field);
    EXPECT_EQ(focusAfter([&] { other.setFocus(); }), &other);
    EXPECT_EQ(focusAfter([&] { field.setEnabled(false); }), &button) << "a disabled field cannot get the focus back";
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), &button);
    auto *gone = new Button(u"gone"_s, u"&G"_s, &window);
    QObject::connect(gone, &Button::clicked, &window, [&] { delete gone; });
    gone->show();
    field.setEnabled(true);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(window.findChild<Button *>(u"gone"_s), nullptr);
}

TEST(FoldingRow, TakesALineForEachGroupOnlyWhereItIsNarrow) {
    Window window(u"window"_s, {});
    auto *one = new Button(u"one"_s, u"一个很长很长的按钮"_s), *other = new Button(u"other"_s, u"另一个很长的按钮"_s);
    auto *below = new QLineEdit;
    auto *groups = new FoldingRow({one, other});
    window.setLayout(column({groups, below}));
    const int least = one->minimumSizeHint().width() + groups->spacing() + other->minimumSizeHint().width();
    const int between = window.style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, &window);
    EXPECT_EQ(groups->heightForWidth(least), one->sizeHint().height());
    EXPECT_EQ(groups->heightForWidth(least - 1), 2 * one->sizeHint().height() + between);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const auto isFolded = [&] { return other->y() > one->geometry().bottom(); };
    const auto becomes = [&](int width, bool folded) {
        window.resize(width, window.height());
        return QTest::qWaitFor([&] { return isFolded() == folded; }) && below->y() > other->geometry().bottom();
    };
    EXPECT_FALSE(isFolded());
    EXPECT_TRUE(becomes(window.minimumWidth(), true));
    EXPECT_GE(window.minimumHeight(), 3 * one->height()) << "the lines have room";
    EXPECT_TRUE(becomes(800, false));
}

// Also if the contents grow while the window is shown; the control with the focus stays visible.
TEST(Window, ContentsThatAreLargerThanTheScreenScroll) {
    Window window(u"window"_s, {});
    auto *first = new QLineEdit, *last = new QLineEdit, *high = new QLineEdit;
    window.setLayout(column({first, high, last}));
    window.resize(2 * window.screen()->size());
    showActive(window);
    EXPECT_TRUE(window.width() <= window.screen()->size().width() && !window.findChild<QScrollArea *>());
    last->setFocus();
    high->setMinimumHeight(2 * window.screen()->size().height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.findChild<QScrollArea *>() != nullptr; }));
    EXPECT_TRUE(window.screen()->geometry().contains(window.frameGeometry()));
    EXPECT_TRUE(last->hasFocus());
    const auto *area = window.findChild<QScrollArea *>();
    EXPECT_EQ(area->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(area->viewport()->mapTo(&window, QPoint()), QPoint()) << "neither margins nor a frame";
    EXPECT_EQ(area->size(), window.size());
    EXPECT_TRUE(QTest::qWaitFor([&] { return area->widget()->width() == area->viewport()->width(); }));
    for (QLineEdit *box : {first, last}) {
        box->setFocus();
        EXPECT_TRUE(QTest::qWaitFor([box] { return box->visibleRegion().boundingRect().height() == box->height(); }));
    }
}

// Also before it is shown; a window beside the screen is moved onto it.
TEST(Window, IsShownOnTheScreenAsAWhole) {
    Window high(u"high"_s, {}), beside(u"beside"_s, {});
    auto *box = new QLineEdit;
    box->setMinimumHeight(2 * high.screen()->size().height());
    high.setLayout(column({box}));
    high.show();
    EXPECT_TRUE(high.findChild<QScrollArea *>());
    high.close();
    const QRect screen = beside.screen()->availableGeometry();
    beside.setLayout(column({new QLineEdit}));
    beside.move(screen.bottomRight() - QPoint(20, 20));
    showActive(beside);
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen.contains(beside.frameGeometry()); }));
}

TEST(Window, HasItsNamesAndStaysIfItMustNotClose) {
    struct Staying final : Window {
        using Window::Window;
        bool stays = true;
        bool queryUnload() override { return !stays; }
    };
    Staying window(u"frmA"_s, u"标题"_s);
    EXPECT_EQ((QStringList{window.objectName(), window.windowTitle(), window.accessibleName()}),
              (QStringList{u"frmA"_s, u"标题"_s, u"标题"_s}));
    EXPECT_TRUE(window.windowFlags().testFlags(Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint));
    int left = 0;
    QObject::connect(&window, &Window::unloaded, [&] { ++left; });
    window.show();
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible() && left == 0);
    window.stays = false;
    EXPECT_TRUE(window.close() && left == 1);
}
