#include "omci_host/NorvikTimer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <limits>
#include <thread>

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

struct Fired
{
    std::atomic<int> count{0};
    std::atomic<int> holdMilliseconds{0};
    std::thread::id thread;

    static void handler(sigval value)
    {
        auto* const fired = static_cast<Fired*>(value.sival_ptr);
        fired->thread = std::this_thread::get_id();
        if (fired->holdMilliseconds != 0) {
            std::this_thread::sleep_for(milliseconds(fired->holdMilliseconds));
        }
        ++fired->count;
    }
    bool waitFor(int expected)
    {
        const auto end = Clock::now() + milliseconds(5000);
        while (count < expected && Clock::now() < end) {
            std::this_thread::sleep_for(milliseconds(1));
        }
        return count == expected;
    }
};

}  // namespace

TEST(NorvikTimer, FiresOnceOnItsOwnThread)
{
    Fired fired;
    NorvikTimer timer(&Fired::handler, &fired);
    const auto start = Clock::now();
    timer.startOneShotTimer(30);
    EXPECT_TRUE(fired.waitFor(1));
    EXPECT_GE(Clock::now() - start, milliseconds(30));
    std::this_thread::sleep_for(milliseconds(50));
    EXPECT_EQ(1, fired.count);
    EXPECT_NE(std::this_thread::get_id(), fired.thread);
    timer.startOneShotTimer(1);
    EXPECT_TRUE(fired.waitFor(2));
}

TEST(NorvikTimer, StartingAgainPutsItOff)
{
    Fired fired;
    NorvikTimer timer(&Fired::handler, &fired);
    timer.startOneShotTimer(1);
    timer.startOneShotTimer(60000);
    std::this_thread::sleep_for(milliseconds(40));
    EXPECT_EQ(0, fired.count);
    timer.startOneShotTimer(1);
    EXPECT_TRUE(fired.waitFor(1));
}

TEST(NorvikTimer, LongTimerIsNeverEarly)
{
    Fired fired;
    NorvikTimer timer(&Fired::handler, &fired);
    const auto start = Clock::now();
    timer.startOneShotTimer(1000);
    EXPECT_LE(NorvikTimer::getRunningTimers().at(0).millisecondsLeft, 1000U);
    EXPECT_TRUE(fired.waitFor(1));
    EXPECT_GE(Clock::now() - start, milliseconds(1000));
}

TEST(NorvikTimer, StopKeepsItFromFiring)
{
    Fired fired;
    NorvikTimer timer(&Fired::handler, &fired);
    timer.startOneShotTimer(20);
    timer.stopTimer();
    std::this_thread::sleep_for(milliseconds(60));
    EXPECT_EQ(0, fired.count);
}

TEST(NorvikTimer, AnEarlierTimerOvertakesALaterOne)
{
    Fired late;
    Fired early;
    NorvikTimer first(&Fired::handler, &late);
    NorvikTimer second(&Fired::handler, &early);
    first.startOneShotTimer(60000);
    std::this_thread::sleep_for(milliseconds(20));
    second.startOneShotTimer(10);
    EXPECT_TRUE(early.waitFor(1));
    EXPECT_EQ(0, late.count);
}

TEST(NorvikTimer, DestructorWaitsForTheRunningHandler)
{
    Fired fired;
    fired.holdMilliseconds = 100;
    {
        NorvikTimer timer(&Fired::handler, &fired);
        timer.startOneShotTimer(1);
        std::this_thread::sleep_for(milliseconds(50));
        EXPECT_EQ(0, fired.count);
    }
    EXPECT_EQ(1, fired.count);
}

TEST(NorvikTimer, HandlerMayDeleteItsOwnTimer)
{
    struct Owner
    {
        NorvikTimer* timer = nullptr;
        std::atomic<bool> done{false};
        static void handler(sigval value)
        {
            auto* const owner = static_cast<Owner*>(value.sival_ptr);
            delete owner->timer;
            owner->done = true;
        }
    } owner;
    owner.timer = new NorvikTimer(&Owner::handler, &owner);
    owner.timer->startOneShotTimer(1);
    for (int wait = 0; wait < 5000 && !owner.done; ++wait) {
        std::this_thread::sleep_for(milliseconds(1));
    }
    EXPECT_TRUE(owner.done);
}

TEST(NorvikTimer, TimeScaleMakesTimersFaster)
{
    Fired fired;
    NorvikTimer timer(&Fired::handler, &fired);
    NorvikTimer::setTimeScale(1000);
    NorvikTimer::setTimeScale(0);
    NorvikTimer::setTimeScale(-1);
    NorvikTimer::setTimeScale(std::numeric_limits<double>::infinity());
    const auto start = Clock::now();
    timer.startOneShotTimer(30000);
    NorvikTimer::setTimeScale(1);
    EXPECT_TRUE(fired.waitFor(1));
    EXPECT_GE(Clock::now() - start, milliseconds(20));
}

TEST(NorvikTimer, RunningTimersAreListed)
{
    Fired fired;
    NorvikTimer timer(&Fired::handler, &fired);
    EXPECT_TRUE(NorvikTimer::getRunningTimers().empty());
    NorvikTimer::setTimeScale(10);
    timer.startOneShotTimer(60000);
    NorvikTimer::setTimeScale(1);
    const auto timers = NorvikTimer::getRunningTimers();
    ASSERT_EQ(1U, timers.size());
    EXPECT_EQ(&Fired::handler, timers[0].handler);
    EXPECT_LE(timers[0].millisecondsLeft, 60000U);
    EXPECT_GT(timers[0].millisecondsLeft, 50000U);
    timer.stopTimer();
    EXPECT_TRUE(NorvikTimer::getRunningTimers().empty());
}
