#include "hardware/Optics.h"

namespace optics {

namespace {
constexpr unsigned short kReceived = 0xD8F0;     // -20 dBm
constexpr unsigned short kTransmitted = 0x03E8;  // 2 dBm
constexpr unsigned short kVoltage = 165;         // 3.3 V
constexpr unsigned short kBias = 6000;           // 12 mA
constexpr unsigned short kTemperature = 42 * 256;

/// 0 at first, then up to `amplitude`, down to -`amplitude`, and back, within 4 * `quarter` steps.
int wave(long long step, int quarter, int amplitude)
{
    const int place = static_cast<int>(step % (4LL * quarter));
    const int height = place <= quarter ? place : place <= 3 * quarter ? 2 * quarter - place : place - 4 * quarter;
    return height * amplitude / quarter;
}

long long stepOf(std::chrono::seconds uptime)
{
    return uptime / kMonitorPeriod;
}

unsigned short moved(unsigned short nominal, int by)
{
    return static_cast<unsigned short>(nominal + by);
}
}  // namespace

Levels levelsAfter(std::chrono::seconds uptime, const FixedLevels& fixed)
{
    const long long step = stepOf(uptime);
    return {fixed.received.value_or(moved(kReceived, wave(step, 10, 60))),
            fixed.transmitted.value_or(moved(kTransmitted, wave(step, 7, 14)))};
}

ModuleReadings readingsAfter(std::chrono::seconds uptime)
{
    const long long step = stepOf(uptime);
    return {kVoltage, moved(kBias, wave(step, 7, 70)), moved(kTemperature, wave(step, 14, 3 * 256))};
}

}  // namespace optics
