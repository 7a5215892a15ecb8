#ifndef HOST_PM_THRESHOLD_ALERTS_H
#define HOST_PM_THRESHOLD_ALERTS_H

#include <cstdint>
#include <optional>
#include <vector>

#include "PmControlBlock.h"

namespace omci {

/// One threshold crossing alert of a PM class: which counter, against which threshold, and the alarm it raises.
struct ThresholdAlert
{
    std::uint16_t classId;   ///< of the PM entity
    std::uint8_t counter;    ///< place among the counter attributes, from 1 (attribute mask 0x2000)
    std::uint8_t threshold;  ///< number of the threshold value attribute, 1 to 14
    std::uint8_t alarm;      ///< bit of the alarm bitmap
};

/// The alerts of a class, by alarm; none for a class that has none.
std::vector<ThresholdAlert> thresholdAlertsOf(std::uint16_t classId);

/// The classes that have alerts, ascending.
const std::vector<std::uint16_t>& classesWithThresholdAlerts();

/// What a PM entity says about its thresholds.
struct ThresholdSettings
{
    std::uint16_t dataInstance = 0;              ///< of the threshold data entity; 0: no thresholds
    bool is64Bit = false;                        ///< threshold data 64-bit (class 426) instead of 273 and 274
    std::optional<PmControlBlock> controlBlock;  ///< of the classes that have one (334, 425)

    /// Whether the counters go on over the intervals, by the control block.
    bool isContinuous() const { return controlBlock && controlBlock->isContinuous(); }
    /// Whether alerts are on for the counter, by the control block.
    bool alerts(unsigned counter) const { return !controlBlock || controlBlock->alerts(counter); }
};

/// Read from the instance itself, so that no counter is refreshed. Nothing when the class has no alerts or there is no
/// such instance.
std::optional<ThresholdSettings> thresholdSettingsOf(std::uint16_t classId, std::uint16_t instance);

/// The value of a threshold (1 to 14). Nothing without its threshold data entity (1 to 7: class 273, 8 to 14: class 274
/// of the same instance, 64-bit: class 426) or when it is 0, which sets none.
std::optional<std::uint64_t> thresholdValue(const ThresholdSettings& settings, unsigned threshold);

}  // namespace omci

#endif
