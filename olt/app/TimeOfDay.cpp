#include "app/TimeOfDay.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace olt {

std::string timeOfDay()
{
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto milliseconds =
        static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000);
    std::tm utc = {};
    gmtime_r(&seconds, &utc);
    std::array<char, 48> date{};
    std::array<char, 64> text{};
    std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &utc);
    std::snprintf(text.data(), text.size(), "%s.%03dZ", date.data(), milliseconds);
    return text.data();
}

}  // namespace olt
