// The timers' thread cannot be made.
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>

#include <gtest/gtest.h>

#include "NorvikTimer.h"
#include "sandbox/Sandbox.h"
#include "sandbox/SandboxState.h"

namespace {

std::atomic<bool> hasFired{false};

/// In a process of its own. The exit code tells what went wrong.
[[noreturn]] void startTwice()
{
    NorvikTimer timer([](sigval) { hasFired = true; }, nullptr);
    Sandbox::fail("pthread_create", EAGAIN, 1);
    try {
        timer.startOneShotTimer(1);
        std::_Exit(1);
    } catch (const std::system_error& error) {
        if (error.code().value() != EAGAIN || !NorvikTimer::getRunningTimers().empty()) {
            std::_Exit(2);
        }
    }
    timer.startOneShotTimer(1);
    for (int wait = 0; wait < 10000 && !hasFired; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    std::_Exit(hasFired ? 0 : 3);
}

std::ptrdiff_t threadCount()
{
    const sandbox::OwnWork own;
    const std::filesystem::directory_iterator threads("/proc/self/task");
    return std::distance(begin(threads), end(threads));
}

}  // namespace

// Suites of this name come first, when no timer has run yet.
TEST(TimerFaultDeathTest, ThreadThatCannotBeMadeIsTriedAgainAtTheNextStart)
{
    if (threadCount() != 1) {
        GTEST_SKIP() << "the timers' thread runs already";
    }
    const pid_t child = fork();
    ASSERT_LE(0, child);
    if (child == 0) {
        startTwice();
    }
    int status = 0;
    ASSERT_EQ(child, waitpid(child, &status, 0));
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(0, WEXITSTATUS(status));
}
