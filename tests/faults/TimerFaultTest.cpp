// The timers' thread cannot be made.
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <system_error>
#include <thread>

#include <gtest/gtest.h>

#include "NorvikTimer.h"
#include "sandbox/Sandbox.h"

namespace {

std::atomic<bool> hasFired{false};

/// In a process of its own, where no timer has run yet.
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

}  // namespace

TEST(TimerFaultDeathTest, ThreadThatCannotBeMadeIsTriedAgainAtTheNextStart)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(startTwice(), ::testing::ExitedWithCode(0), "");
}
