#ifndef SIMULATOR_HARDWARE_OPTICS_H
#define SIMULATOR_HARDWARE_OPTICS_H

#include <chrono>
#include <optional>

/// The optical module of the ONU, as its monitor sees it.
namespace optics {

/// Levels in 0.002 dB referred to 1 mW, two's complement.
struct Levels
{
    unsigned short received;
    unsigned short transmitted;
};

/// What the control socket has fixed; nothing: the module's own level.
struct FixedLevels
{
    std::optional<unsigned short> received;
    std::optional<unsigned short> transmitted;
};

/// The monitor averages this long before it shows a new level.
constexpr std::chrono::seconds kMonitorPeriod{60};

/// The levels after the ONU has been up so long. They drift slowly around -20 dBm and 2 dBm, in steps of one monitor
/// period, and stay at just these in the first.
Levels levelsAfter(std::chrono::seconds uptime, const FixedLevels& fixed);

/// What the self-test of an ANI-G measures beside the levels.
struct ModuleReadings
{
    unsigned short voltage;      ///< 20 mV
    unsigned short bias;         ///< 2 uA
    unsigned short temperature;  ///< 1/256 degree C, two's complement
};
ModuleReadings readingsAfter(std::chrono::seconds uptime);

}  // namespace optics

#endif
