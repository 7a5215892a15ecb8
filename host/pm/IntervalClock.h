#ifndef HOST_PM_INTERVAL_CLOCK_H
#define HOST_PM_INTERVAL_CLOCK_H

#include <chrono>
#include <cstdint>
#include <functional>

namespace omci {

/// Divides the time that it is told of into the intervals of performance monitoring. It keeps no time of its own, so
/// that a host drives it by whatever clock it has.
class IntervalClock
{
public:
    /// Time as this clock counts it.
    using Duration = std::chrono::microseconds;
    /// The interval of G.988.
    static constexpr std::chrono::minutes kStandardLength{15};

    /// The first interval begins now. `length` is above 0.
    explicit IntervalClock(Duration length = kStandardLength) : m_Length(length) {}

    /// Of an interval.
    Duration length() const { return m_Length; }
    /// Above 0. Holds for the running interval too, which ends at once when it has lasted that long.
    void setLength(Duration length) { m_Length = length; }

    /// Time until the running interval ends; 0 when it is due.
    Duration untilEnd() const;

    /// Called with a stretch of time inside one interval, and how many intervals end with it: 0 or 1; more where that
    /// many were merged.
    using Step = std::function<void(Duration stretch, std::uint64_t intervalsEnded)>;
    /// More intervals than this are not told one by one: all but the last of them pass in one step, so that a host that
    /// was held up catches up.
    static constexpr std::uint64_t kMostSteps = 100;
    /// Lets time pass, in one step for each interval that it touches.
    void advance(Duration time, const Step& step);

    /// A new interval begins now, as after synchronize time; the old one does not count as ended.
    void restart() { m_Elapsed = Duration::zero(); }

private:
    Duration m_Length;
    Duration m_Elapsed{};
};

}  // namespace omci

#endif
