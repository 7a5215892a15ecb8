#include "terminal/TimeText.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace olt {

std::string timeText(std::chrono::microseconds since1970, unsigned decimals)
{
    const auto seconds = static_cast<std::time_t>(since1970.count() / 1'000'000);
    const auto micro = static_cast<int>(since1970.count() % 1'000'000);
    std::tm utc = {};
    gmtime_r(&seconds, &utc);
    std::array<char, 48> date{};
    std::array<char, 80> text{};
    std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &utc);
    if (decimals == 3)
        std::snprintf(text.data(), text.size(), "%s.%03dZ", date.data(), micro / 1000);
    else
        std::snprintf(text.data(), text.size(), "%s.%06dZ", date.data(), micro);
    return text.data();
}

}  // namespace olt
