#ifndef SIMULATOR_LOOP_TIMER_H
#define SIMULATOR_LOOP_TIMER_H

#include <chrono>
#include <optional>

#include "EventLoop.h"

/// Runs an action on the loop's thread at a time of the machine's steady clock.
class LoopTimer
{
public:
    using Clock = std::chrono::steady_clock;

    /// The loop outlives the object. std::system_error when the system has no more timers.
    LoopTimer(EventLoop& loop, EventLoop::Action action);
    ~LoopTimer();
    LoopTimer(const LoopTimer&) = delete;
    LoopTimer& operator=(const LoopTimer&) = delete;

    /// Once, at that time, instead of what was asked for before; a time that has passed is now. Nothing: never. Any
    /// thread.
    void arm(std::optional<Clock::time_point> when);

private:
    EventLoop& m_Loop;
    Descriptor m_Timer;
};

#endif
