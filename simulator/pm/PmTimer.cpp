#include "pm/PmTimer.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <system_error>

namespace {
/// However fast the time runs, the machine is not woken more often than this.
constexpr std::chrono::milliseconds kShortestWait{20};
}  // namespace

PmTimer::PmTimer(EventLoop& loop, PerformanceMonitoring& counting, double timeScale)
    : m_Loop(loop), m_Counting(counting), m_TimeScale(timeScale),
      m_Timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (!m_Timer.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "cannot make the timer of performance monitoring");
    }
    m_Counting.onCatchUp([this] { catchUp(); });
    m_Loop.watch(m_Timer.get(), [this] {
        std::uint64_t expirations = 0;
        static_cast<void>(!read(m_Timer.get(), &expirations, sizeof expirations));
        catchUp();
        rearm();
    });
    rearm();
}

PmTimer::~PmTimer()
{
    m_Counting.onCatchUp(nullptr);
    m_Loop.unwatch(m_Timer.get());
}

void PmTimer::catchUp()
{
    const Clock::time_point now = Clock::now();
    const std::chrono::duration<double> passed = (now - m_HandedOver) * m_TimeScale;
    m_HandedOver = now;
    if (m_Counting.isRunning()) {
        m_Counting.advance(std::chrono::duration_cast<PerformanceMonitoring::Duration>(passed));
    }
}

void PmTimer::rearm()
{
    itimerspec when{};
    if (m_Counting.isRunning()) {
        const std::chrono::duration<double> wanted = m_Counting.untilNextStep();
        const auto wait =
            std::max<Clock::duration>(std::chrono::duration_cast<Clock::duration>(wanted / m_TimeScale), kShortestWait);
        const auto due = std::chrono::duration_cast<std::chrono::nanoseconds>((m_HandedOver + wait).time_since_epoch());
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(due);
        when.it_value.tv_sec = seconds.count();
        when.it_value.tv_nsec = (due - seconds).count();
    }
    timerfd_settime(m_Timer.get(), TFD_TIMER_ABSTIME, &when, nullptr);
}
