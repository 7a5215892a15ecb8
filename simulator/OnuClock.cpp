#include "OnuClock.h"

#include <array>

void OnuClock::restart()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Start = Steady::now();
    m_IsSynchronized = false;
}

void OnuClock::set(std::time_t now)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_SetAt = Steady::now();
    m_Time = now;
    m_IsSynchronized = true;
}

bool OnuClock::isSynchronized() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_IsSynchronized;
}

std::time_t OnuClock::now() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (!m_IsSynchronized) {
        return std::time(nullptr);
    }
    return m_Time + std::chrono::duration_cast<std::chrono::seconds>(Steady::now() - m_SetAt).count();
}

std::chrono::milliseconds OnuClock::uptime() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return std::chrono::duration_cast<std::chrono::milliseconds>(Steady::now() - m_Start);
}

std::string utcText(std::time_t time)
{
    std::tm utc{};
    gmtime_r(&time, &utc);
    std::array<char, 48> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &utc);
    return text.data();
}
