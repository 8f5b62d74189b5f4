// A child process that works until it is killed with SIGKILL, which a program cannot catch.
#pragma once

#include <QTest>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

// The child repeats `work`; it is killed once `farEnough` returns true in this process. No database connection may be
// open during the call, because the child would share it.
inline void killInMidWork(const std::function<void()> &work, const std::function<bool()> &farEnough) {
    const pid_t child = fork();
    if (child == 0)
        for (;;)
            work();
    EXPECT_TRUE(QTest::qWaitFor(farEnough, 30000));
    ::kill(child, SIGKILL);
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
}
