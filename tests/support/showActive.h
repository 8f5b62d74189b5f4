#pragma once

#include <QTest>
#include <gtest/gtest.h>

// Shows the window and waits until it has the keyboard.
inline void showActive(QWidget &window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}
