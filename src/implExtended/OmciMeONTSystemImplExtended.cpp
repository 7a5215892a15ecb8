#include "implExtended/OmciMeONTSystemImplExtended.h"

#include <ctime>
#include <optional>

#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

std::tm brokenDownTime(const unsigned char* value)
{
    std::tm time{};
    time.tm_year = (value[0] << 8 | value[1]) - 1900;
    time.tm_mon = value[2] - 1;
    time.tm_mday = value[3];
    time.tm_hour = value[4];
    time.tm_min = value[5];
    time.tm_sec = value[6];
    return time;
}

/// None where time_t has 32 bits and does not reach so far. -1 alone is a time too: a second before 1970.
std::optional<std::time_t> localTime(std::tm time)
{
    constexpr int unset = -1;
    time.tm_wday = unset;
    const std::time_t seconds = std::mktime(&time);
    return time.tm_wday == unset ? std::nullopt : std::optional(seconds);
}

}  // namespace

int OmciMeONTSystemImplExtended::setTimeOfDay(const unsigned char* value)
{
    NRVK_LOG(6, "Time of day(%02X, %02X, %02X, %02X, %02X, %02X, %02X)", value[0], value[1], value[2], value[3],
             value[4], value[5], value[6]);
    OmciMeONTSystemImpl::setTimeOfDay(value);
    const std::optional<std::time_t> seconds = localTime(brokenDownTime(value));
    if (!seconds) {
        NRVK_LOG(3, "Time of day is outside of what time_t holds, the clock stays as it is");
        return 0;
    }
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->setOntTimeOfDay(&*seconds);
    }
    NRVK_LOG(3, "Time of day (in Seconds) = %d", static_cast<int>(*seconds));
    return 0;
}
