#ifndef SIMULATOR_PM_PERFORMANCE_MONITORING_H
#define SIMULATOR_PM_PERFORMANCE_MONITORING_H

#include <functional>
#include <map>
#include <optional>

#include "host/pm/IntervalClock.h"
#include "host/pm/ThresholdCrossings.h"
#include "pm/PmSources.h"

/// The counting half of the simulated hardware: intervals, simulated traffic, and the alerts of counters that cross
/// their thresholds.
///
/// A source either is told its counters, and then answers with them to every question until it is told others; or it
/// measures, once there is traffic: then its counters grow, and the running interval, the last one and the continuous
/// count are three things. Without traffic nothing changes but what is told.
///
/// Time stands still but for `advance`. The library's thread uses it.
class PerformanceMonitoring
{
public:
    using Duration = omci::IntervalClock::Duration;

    /// What the counting depends on.
    struct Surroundings
    {
        /// Counters that a source was told; nothing when it never was.
        std::function<std::optional<counters::Values>(const PmSource&)> told;
        /// Whether the link of a UNI is up.
        std::function<bool(unsigned short uni)> isLinkUp;
        omci::ThresholdCrossings::Raise raise;
    };

    PerformanceMonitoring(Duration interval, bool hasTraffic, Surroundings surroundings);

    void advance(Duration time);
    /// How to let pass what the clock that drives this has not handed over yet; called before anything that depends on
    /// the moment at which it happens.
    void onCatchUp(std::function<void()> catchUp) { m_CatchUp = std::move(catchUp); }
    void catchUp() const
    {
        if (m_CatchUp) {
            m_CatchUp();
        }
    }
    /// How much may pass before something is to be done.
    Duration untilNextStep() const;

    /// Whether time passes by itself; it does at first. Without that it is `advance` alone.
    bool isRunning() const { return m_IsRunning; }
    void setRunning(bool isRunning);

    bool hasTraffic() const { return m_HasTraffic; }
    void setTraffic(bool hasTraffic);
    Duration interval() const { return m_Clock.length(); }
    void setInterval(Duration interval);
    Duration untilIntervalEnd() const { return m_Clock.untilEnd(); }

    /// The OLT has set the clock: a new interval begins, and none has ended yet.
    void synchronize();
    /// The ONU starts anew.
    void restart();

    /// The counters that a source has measured; nothing when it does not measure.
    std::optional<counters::Values> measured(const PmSource& source, omci::PmView view);
    /// The source has been told new counters.
    void onTold(const PmSource& source);
    /// A PM entity was made: it counts from 0.
    void onCreated(unsigned short classId, unsigned short instance);
    /// The OLT has asked for a clear of the counters that a PM entity shows.
    void clear(unsigned short classId, unsigned short instance, omci::PmView view);
    /// All sources of the family are set back to 0, in all views.
    void clearFamily(unsigned short family);

    /// Sources that measure.
    std::size_t measuringSources() const { return m_Measuring.size(); }
    const omci::ThresholdCrossings& crossings() const { return m_Crossings; }

private:
    omci::IntervalCounters& measuring(const PmSource& source);
    void followTheMib(const std::vector<PmEntity>& entities);
    void step(Duration stretch, std::uint64_t intervalsEnded);
    void count(const std::vector<PmEntity>& entities, Duration from, Duration to);
    void checkThresholds(const PmEntity& entity);
    bool carriesTraffic(const std::vector<PmEntity>& entities, const PmSource& source) const;

    std::function<void()> m_CatchUp;
    omci::IntervalClock m_Clock;
    Surroundings m_Surroundings;
    omci::ThresholdCrossings m_Crossings;
    bool m_HasTraffic;
    bool m_IsRunning = true;
    /// How long there has been traffic.
    Duration m_TrafficTime{};
    std::map<PmSource, omci::IntervalCounters> m_Measuring;
};

#endif
