// A child process that works until it is killed with SIGKILL, which a program cannot catch. On Windows, which cannot
// fork, the test fails.
#pragma once

#include <functional>

// The child repeats `work`; it is killed once `farEnough` returns true in this process. No database connection may be
// open during the call, because the child would share it.
void killInMidWork(const std::function<void()> &work, const std::function<bool()> &farEnough);
