#ifndef OLT_PM_PM_SERIES_H
#define OLT_PM_PM_SERIES_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/AttributeValues.h"

namespace olt {

/// The counters of a performance monitoring class: what the ONU counts, without interval end time and thresholds.
[[nodiscard]] std::vector<const Attribute*> pmCounters(const EntityClass& entity);

/// Which interval the counters are of.
enum class PmInterval
{
    Last,    ///< the one that ended last, or a continuous count: get
    Running  ///< get current data
};

struct PmCounter
{
    const Attribute* attribute = nullptr;  ///< Owned by the catalogue.
    std::uint64_t value = 0;
    std::optional<std::int64_t> delta;  ///< To the sample before; none in the first.
    std::optional<double> rate;         ///< Per second since the sample before; none where nobody can tell.
};

struct PmSample
{
    std::string time;    ///< For people and programs, UTC.
    double seconds = 0;  ///< Since the first sample.
    std::optional<std::uint64_t> intervalEndTime;
    bool restarted = false;  ///< A counter is lower than before: a new interval, or a clear.
    std::vector<PmCounter> counters;

    [[nodiscard]] const PmCounter* find(const Attribute& attribute) const;
};

/// Samples of one entity over time, in order.
class PmSeries
{
public:
    /// `keep`: how many samples are kept; older ones go.
    PmSeries(std::vector<const Attribute*> counters, PmInterval interval, std::size_t keep)
        : m_Counters(std::move(counters)), m_Interval(interval), m_Keep(keep)
    {}

    /// `values` is what the ONU answered; counters that are missing in it are missing in the sample. `seconds` is the
    /// time since the first sample, above that of the last one.
    const PmSample& add(const AttributeValues& values, double seconds, std::string time);

    [[nodiscard]] const std::vector<PmSample>& samples() const { return m_Samples; }
    [[nodiscard]] const std::vector<const Attribute*>& counters() const { return m_Counters; }

private:
    void compare(PmCounter& counter, const PmCounter& before, double seconds, bool& restarted) const;

    std::vector<const Attribute*> m_Counters;
    PmInterval m_Interval;
    std::size_t m_Keep;
    std::vector<PmSample> m_Samples;
};

}  // namespace olt

#endif
