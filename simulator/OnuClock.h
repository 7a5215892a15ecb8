#ifndef SIMULATOR_ONU_CLOCK_H
#define SIMULATOR_ONU_CLOCK_H

#include <chrono>
#include <ctime>
#include <mutex>
#include <string>

/// The ONU's clock: knows how long the ONU is up, and the time of day once somebody has told it.
///
/// Until then it shows the machine's time. Any thread may use it.
class OnuClock
{
public:
    OnuClock() = default;

    /// A restart: the ONU is up for 0 s and knows no time of day.
    void restart();
    /// Sets the time of day, seconds since 1970 in UTC.
    void set(std::time_t now);

    bool isSynchronized() const;
    /// Seconds since 1970 in UTC.
    std::time_t now() const;
    std::chrono::milliseconds uptime() const;

private:
    using Steady = std::chrono::steady_clock;

    mutable std::mutex m_Mutex;
    Steady::time_point m_Start = Steady::now();
    Steady::time_point m_SetAt;
    std::time_t m_Time = 0;
    bool m_IsSynchronized = false;
};

/// "2025-12-31T23:59:59Z".
std::string utcText(std::time_t time);

#endif
