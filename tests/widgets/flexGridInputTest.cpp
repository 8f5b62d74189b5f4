// Mouse and keyboard of the grid.
#include "flexGridFixture.h"

using namespace widgets;

namespace {

using FlexGridInput = FlexGridTest;

TEST_F(FlexGridInput, MouseMovesClickAndActivate) {
    const QPoint below = grid.viewport()->rect().bottomRight() - QPoint(3, 3); // below the last row
    QMouseEvent drag(QEvent::MouseMove, at(5, 1), grid.viewport()->mapToGlobal(at(5, 1)), Qt::NoButton, Qt::LeftButton,
                     {});
    const std::tuple<std::function<void()>, QStringView, QStringView> steps[] = {
        {[&] { press(Qt::LeftButton, 3); }, u"3-3/1", u"leave1 enter3"},
        {[&] { release(Qt::LeftButton, 3); }, u"3-3/1", u"click3"},
        {[&] { release(Qt::LeftButton, 3); }, u"3-3/1", u""},
        {[&] { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, at(3, 2)); }, u"3-3/2", u"click3"},
        {[&] { press(Qt::LeftButton, 3); }, u"3-3/1", u""}, // no leave signal for the same row
        {[&] { release(Qt::LeftButton, 3); }, u"3-3/1", u"click3"},
        {[&] { press(Qt::RightButton, 5); }, u"3-3/1", u"right3"},
        {[&] { release(Qt::RightButton, 5); }, u"3-3/1", u"click3"},
        {[&] { press(Qt::LeftButton, 1, Qt::ShiftModifier); }, u"3-1/1", u""},
        {[&] { release(Qt::LeftButton, 1); }, u"3-1/1", u"click3"},
        {[&] { press(Qt::LeftButton, 2); }, u"2-2/1", u"leave3 enter2"},
        {[&] { QCoreApplication::sendEvent(grid.viewport(), &drag); }, u"2-5/1", u""},
        {[&] { release(Qt::LeftButton, 5); }, u"2-5/1", u"click2"},
        {[&] { QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, at(4, 2)); }, u"4-4/2",
         u"leave2 enter4 activated4"},
        {[&] { QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, below); }, u"4-4/2", u"right4 click4"},
        {[&] { QTest::mouseDClick(grid.viewport(), Qt::RightButton, {}, at(3, 1)); }, u"4-4/2", u"right4"},
        {[&] { release(Qt::RightButton, 3); }, u"4-4/2", u"click4"},
        {[&] { QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, below); }, u"4-4/2", u""},
        {[&] { QCoreApplication::sendEvent(grid.viewport(), &drag); }, u"4-4/2", u""},
        {[&] { QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, below); }, u"4-4/2", u"click4"},
        {[&] { QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, below); }, u"4-4/2", u"activated4"},
        {[&] { grid.clickRow(9); }, u"6-6/2", u"leave4 enter6 click6"},
        {[&] { grid.setRows(1); }, u"0-0/2", u""},
        {[&] { QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, below); }, u"0-0/2", u""},
    };
    for (int number = 0; const auto &[act, expected, signalsSeen] : steps) {
        act();
        EXPECT_EQ(place(), expected.toString()) << number;
        EXPECT_EQ(taken(), signalsSeen.toString()) << number++;
    }
}

TEST_F(FlexGridInput, EverythingByKeyboard) {
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, QStringView, QStringView> steps[] = {
        {Qt::Key_Up, {}, u"1-1/1", u""},
        {Qt::Key_Down, {}, u"2-2/1", u"leave1 enter2"},
        {Qt::Key_Right, {}, u"2-2/2", u""},
        {Qt::Key_Down, Qt::ShiftModifier, u"2-3/2", u""},
        {Qt::Key_Left, {}, u"2-3/1", u""},
        {Qt::Key_Left, {}, u"2-3/1", u""}, // column 0 is hidden
        {Qt::Key_End, {}, u"2-3/3", u""},
        {Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier, u"2-6/3", u""},
        {Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier, u"2-1/3", u""},
        {Qt::Key_Home, {}, u"2-1/1", u""},
        {Qt::Key_PageDown, {}, u"6-6/1", u"leave2 enter6"},
        {Qt::Key_Home, Qt::ControlModifier, u"1-1/1", u"leave6 enter1"},
        {Qt::Key_Return, {}, u"1-1/1", u"activated1"},
        {Qt::Key_Enter, Qt::KeypadModifier, u"1-1/1", u"activated1"},
        {Qt::Key_Menu, {}, u"1-1/1", u"menu1"},
        {Qt::Key_F10, Qt::ShiftModifier, u"1-1/1", u"menu1"},
    };
    grid.setFocus();
    grid.setColumn(1);
    for (const auto &[key, modifiers, expected, signalsSeen] : steps) {
        QTest::keyClick(&grid, key, modifiers);
        EXPECT_EQ(place(), expected.toString());
        EXPECT_EQ(grid.currentIndex().column(), grid.column());
        EXPECT_EQ(grid.selectionModel()->selectedRows().size(), std::abs(grid.rowSel() - grid.row()) + 1);
        EXPECT_EQ(taken(), signalsSeen.toString());
    }
    QKeyEvent alt(QEvent::KeyPress, Qt::Key_Down, Qt::AltModifier);
    QCoreApplication::sendEvent(&grid, &alt);
    EXPECT_TRUE(!alt.isAccepted() && grid.row() == 1) << "left to the window";
    grid.setColumnTwips(3, 0);
    QTest::keyClick(&grid, Qt::Key_End);
    EXPECT_EQ(place(), u"1-1/2"_s);
    grid.setColumnTwips(3, 500);
    QTest::keyClick(&grid, Qt::Key_Left);
    grid.setColumnTwips(0, 500); // no longer hidden
    QTest::keyClick(&grid, Qt::Key_Left);
    EXPECT_EQ(place(), u"1-1/0"_s);
    grid.setColumnTwips(0, 0);
    grid.setRow(2);
    grid.setRowSel(1);
    grid.setText(2, 2, u"a\tb\r\nc"_s);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"11\t12\t13\n21\ta b  c\t23\n"_s);
}

TEST_F(FlexGridInput, PagesAreOneRowLessThanTheViewAndTheCurrentRowIsSeen) {
    grid.setRows(100);
    EXPECT_EQ(grid.shownRow(99, 1), -1);
    EXPECT_EQ(grid.shownRow(99, -1), 98);
    const int page = grid.viewport()->height() / grid.cellRect(1, 1).height() - 1;
    grid.setRow(1);
    QTest::keyClick(&grid, Qt::Key_PageDown);
    EXPECT_EQ(grid.row(), 1 + page);
    for (const int row : {99, 1, 50}) {
        grid.setRow(row);
        EXPECT_TRUE(grid.viewport()->rect().contains(at(row, 1))) << row;
        grid.clickRow(100 - row);
        EXPECT_TRUE(grid.viewport()->rect().contains(at(100 - row, 1))) << row;
        for (const auto &[key, reached] : {std::pair(Qt::Key_End, 99), {Qt::Key_Home, 1}}) {
            QTest::keyClick(&grid, key, Qt::ShiftModifier | Qt::ControlModifier);
            EXPECT_TRUE(grid.rowSel() == reached && grid.viewport()->rect().contains(at(reached, 1))) << reached;
        }
    }
    grid.verticalScrollBar()->setValue(0);
    grid.setRowSel(60);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 0) << "the program extends the selection without scrolling";
}

// A button of the window system is held: outside the rows the selection grows until the pointer returns.
TEST_F(FlexGridInput, ADragOutsideExtendsUntilTheLastRow) {
    QWindow *system = window.windowHandle();
    const auto inWindow = [&](QPoint point) { return grid.viewport()->mapTo(&window, point); };
    const int below = grid.viewport()->height();
    const auto reaches = [&](int row) { return QTest::qWaitFor([&] { return grid.rowSel() == row; }, 20'000); };
    QTest::mousePress(system, Qt::LeftButton, {}, inWindow(at(3, 1)));
    for (const auto &[y, row, inside] : {std::tuple(below, 6, 4), {-1, 1, 1}, {below, 6, 4}}) {
        QTest::mouseMove(system, inWindow({at(3, 1).x(), y}));
        EXPECT_TRUE(reaches(row)) << y;
        QTest::mouseMove(system, inWindow(at(inside, 1)));
        EXPECT_EQ(place(), u"3-%1/1"_s.arg(inside)) << "inside, the row below the pointer";
    }
    QTest::mouseMove(system, inWindow({at(3, 1).x(), below - 1})); // below the last row, still inside
    EXPECT_EQ(place(), u"3-6/1"_s);
    const auto timers = [&] { return QAbstractEventDispatcher::instance()->registeredTimers(&grid).size(); };
    const auto resting = timers();
    QTest::mouseMove(system, inWindow({at(3, 1).x(), below}));
    EXPECT_EQ(timers(), resting + 1);
    QTest::mouseRelease(system, Qt::LeftButton, {}, inWindow({at(3, 1).x(), below + 1}));
    EXPECT_EQ(taken(), u"leave1 enter3"_s) << "no click outside";
    QTest::mousePress(system, Qt::LeftButton, {}, inWindow(at(3, 1)));
    EXPECT_EQ(timers(), resting) << "a new press starts no drag";
    QTest::mouseRelease(system, Qt::LeftButton, {}, inWindow(at(3, 1)));
    QCoreApplication::processEvents();
    EXPECT_EQ(taken(), u"click3"_s) << "one click";
    QTest::mousePress(system, Qt::RightButton, {}, inWindow(at(2, 1)));
    QTest::mouseRelease(system, Qt::RightButton, {}, inWindow(at(2, 1)));
    QCoreApplication::processEvents();
    EXPECT_EQ(taken(), u"right3 click3"_s) << "one click";
    QMenu menu;
    menu.addAction(u"删除"_s);
    QObject::connect(&grid, &FlexGrid::rightPressed, [&] {
        menu.popup(window.mapToGlobal(inWindow(at(2, 1))));
        QTest::mouseRelease(menu.windowHandle(), Qt::RightButton, {}, {-9, -9});
        menu.hide();
    });
    QTest::mousePress(system, Qt::RightButton, {}, inWindow(at(2, 1)));
    QCoreApplication::processEvents();
    EXPECT_EQ(taken(), u"right3 click3"_s) << "if the menu gets the release";
}

TEST_F(FlexGridInput, SlotsOfLeaveCellMayChangeAnything) {
    const auto once = QObject::connect(&grid, &FlexGrid::leaveCell, [this] {
        QTest::keyClick(&grid, Qt::Key_Down); // a nested event loop, in which keys are still processed
        press(Qt::LeftButton, 4);
        grid.setRows(3);
    });
    press(Qt::LeftButton, 6);
    EXPECT_EQ(taken(), u"leave1 enter2"_s);
    QObject::disconnect(once);
    QObject::connect(&grid, &FlexGrid::leaveCell, [this] { grid.setRows(1); });
    QTest::keyClick(&grid, Qt::Key_Up);
    EXPECT_EQ(taken(), u"leave2"_s) << "there is no row left to enter";
    grid.setRows(3);
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(taken(), u"leave1"_s) << "the grid still responds";
}

} // namespace
