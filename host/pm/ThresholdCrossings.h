#ifndef HOST_PM_THRESHOLD_CROSSINGS_H
#define HOST_PM_THRESHOLD_CROSSINGS_H

#include <cstdint>
#include <functional>
#include <set>
#include <tuple>
#include <vector>

namespace omci {

/// Threshold crossing alerts: an alarm of the PM entity is raised once a counter of the running interval reaches its
/// threshold, and cleared when the interval ends. Counters that accumulate continuously have no interval, so that
/// theirs is cleared with the counter only.
///
/// The thresholds are looked up at each check, in the MIB as it is then. One thread uses it, the one that calls the
/// library.
class ThresholdCrossings
{
public:
    /// Sets or clears an alarm and notifies, as Notifier::raiseAlarm does. False when there is no such instance.
    using Raise = std::function<bool(std::uint16_t classId, std::uint16_t instance, unsigned alarm, bool state)>;

    /// `raise` tells the OLT; it is called on the thread that checks.
    explicit ThresholdCrossings(Raise raise) : m_Raise(std::move(raise)) {}

    /// Compares the counters of an entity, in the order of its counter attributes from mask 0x2000. Entities without
    /// threshold data, and counters that are missing, cross nothing.
    void check(std::uint16_t classId, std::uint16_t instance, const std::vector<std::uint64_t>& counters);

    /// Clears the alerts of counters that begin again.
    void endInterval();
    /// The counters of the entity were set back: its alerts go.
    void clear(std::uint16_t classId, std::uint16_t instance);
    /// All alerts go without a word, as at a restart of the ONU.
    void forget() { m_Raised.clear(); }

    /// Class, instance and alarm of each alert in force, ascending.
    using Alert = std::tuple<std::uint16_t, std::uint16_t, std::uint8_t>;
    /// The alerts in force.
    const std::set<Alert>& raised() const { return m_Raised; }

private:
    template <typename Condition>
    void clearIf(Condition condition);

    Raise m_Raise;
    std::set<Alert> m_Raised;
};

}  // namespace omci

#endif
