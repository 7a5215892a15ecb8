#include "IntervalClock.h"

#include <algorithm>

namespace omci {

IntervalClock::Duration IntervalClock::untilEnd() const
{
    return std::max(m_Length - m_Elapsed, Duration::zero());
}

void IntervalClock::advance(Duration time, const Step& step)
{
    const auto due = time < untilEnd() ? 0 : 1 + static_cast<std::uint64_t>((time - untilEnd()) / m_Length);
    if (due > kMostSteps) {
        const Duration stretch = untilEnd() + m_Length * static_cast<Duration::rep>(due - 2);
        time -= stretch;
        m_Elapsed = Duration::zero();
        step(stretch, due - 1);
    }
    while (time >= untilEnd()) {
        const Duration stretch = untilEnd();
        time -= stretch;
        m_Elapsed = Duration::zero();
        step(stretch, 1);
    }
    if (time > Duration::zero()) {
        m_Elapsed += time;
        step(time, 0);
    }
}

}  // namespace omci
