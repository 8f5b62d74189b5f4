// A process of its own that works until it is killed as no program can guard against (kill -9).
#pragma once

#include <QTest>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

// The child works in a loop; it is killed once `farEnough`, which is asked here. No link to a database may be kept open
// when it is called, the child would have it too.
inline void killInMidWork(const std::function<void()> &work, const std::function<bool()> &farEnough) {
    const pid_t child = fork();
    if (child == 0)
        for (;;)
            work();
    EXPECT_TRUE(QTest::qWaitFor(farEnough, 30000));
    ::kill(child, SIGKILL);
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
}
