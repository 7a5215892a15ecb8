#ifndef SIMULATOR_PM_PM_TIMER_H
#define SIMULATOR_PM_PM_TIMER_H

#include <chrono>

#include "LoopTimer.h"
#include "pm/PerformanceMonitoring.h"

/// Lets the time of performance monitoring pass with that of the machine, `timeScale` times as fast, on the loop's
/// thread.
class PmTimer
{
public:
    /// Loop and counting outlive the object. std::system_error when the system has no more timers.
    PmTimer(EventLoop& loop, PerformanceMonitoring& counting, double timeScale);
    ~PmTimer();
    PmTimer(const PmTimer&) = delete;
    PmTimer& operator=(const PmTimer&) = delete;

    /// Looks again when the next step is due; something may have changed.
    void rearm();

private:
    using Clock = LoopTimer::Clock;

    void catchUp();

    PerformanceMonitoring& m_Counting;
    double m_TimeScale;
    /// Up to when the time was handed over.
    Clock::time_point m_HandedOver = Clock::now();
    LoopTimer m_Timer;
};

#endif
