#include "ThresholdCrossings.h"

#include "ThresholdAlerts.h"

namespace omci {

void ThresholdCrossings::check(std::uint16_t classId, std::uint16_t instance,
                               const std::vector<std::uint64_t>& counters)
{
    const auto settings = thresholdSettingsOf(classId, instance);
    if (!settings || settings->dataInstance == 0) {
        return;
    }
    for (const ThresholdAlert& alert : thresholdAlertsOf(classId)) {
        if (alert.counter > counters.size() || !settings->alerts(alert.counter)) {
            continue;
        }
        const auto threshold = thresholdValue(*settings, alert.threshold);
        // Raised again each time, which changes nothing: the entity may be a new one of the same instance.
        if (threshold && counters[alert.counter - 1] >= *threshold && m_Raise(classId, instance, alert.alarm, true)) {
            m_Raised.emplace(classId, instance, alert.alarm);
        }
    }
}

template <typename Condition>
void ThresholdCrossings::clearIf(Condition condition)
{
    for (auto alert = m_Raised.begin(); alert != m_Raised.end();) {
        const auto [classId, instance, alarm] = *alert;
        if (condition(classId, instance)) {
            m_Raise(classId, instance, alarm, false);
            alert = m_Raised.erase(alert);
        } else {
            ++alert;
        }
    }
}

void ThresholdCrossings::endInterval()
{
    clearIf([](std::uint16_t classId, std::uint16_t instance) {
        const auto settings = thresholdSettingsOf(classId, instance);
        return !settings || !settings->isContinuous();
    });
}

void ThresholdCrossings::clear(std::uint16_t classId, std::uint16_t instance)
{
    clearIf(
        [=](std::uint16_t ofClass, std::uint16_t ofInstance) { return ofClass == classId && ofInstance == instance; });
}

}  // namespace omci
