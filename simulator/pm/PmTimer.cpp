#include "pm/PmTimer.h"

#include <algorithm>
#include <optional>

namespace {
/// However fast the time runs, the machine is not woken more often than this.
constexpr std::chrono::milliseconds kShortestWait{20};
}  // namespace

PmTimer::PmTimer(EventLoop& loop, PerformanceMonitoring& counting, double timeScale)
    : m_Counting(counting), m_TimeScale(timeScale), m_Timer(loop, [this] {
          catchUp();
          rearm();
      })
{
    m_Counting.onCatchUp([this] { catchUp(); });
    rearm();
}

PmTimer::~PmTimer()
{
    m_Counting.onCatchUp(nullptr);
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
    std::optional<Clock::time_point> due;
    if (m_Counting.isRunning()) {
        const std::chrono::duration<double> wanted = m_Counting.untilNextStep();
        due = m_HandedOver + std::max<Clock::duration>(
                                 std::chrono::duration_cast<Clock::duration>(wanted / m_TimeScale), kShortestWait);
    }
    m_Timer.arm(due);
}
