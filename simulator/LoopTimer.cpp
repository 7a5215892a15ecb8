#include "LoopTimer.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

LoopTimer::LoopTimer(EventLoop& loop, EventLoop::Action action)
    : m_Loop(loop), m_Timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (!m_Timer.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "cannot make a timer");
    }
    m_Loop.watch(m_Timer.get(), [this, run = std::move(action)] {
        std::uint64_t expirations = 0;
        static_cast<void>(!read(m_Timer.get(), &expirations, sizeof expirations));
        run();
    });
}

LoopTimer::~LoopTimer()
{
    m_Loop.unwatch(m_Timer.get());
}

void LoopTimer::arm(std::optional<Clock::time_point> when)
{
    itimerspec due{};
    if (when) {
        const auto sinceStart = std::chrono::duration_cast<std::chrono::nanoseconds>(when->time_since_epoch());
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(sinceStart);
        due.it_value.tv_sec = seconds.count();
        due.it_value.tv_nsec = (sinceStart - seconds).count();
    }
    timerfd_settime(m_Timer.get(), TFD_TIMER_ABSTIME, &due, nullptr);
}
