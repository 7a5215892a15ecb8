#include "pm/PmSeries.h"

#include <algorithm>

#include "model/Value.h"

namespace olt {

namespace {

constexpr std::uint16_t kIntervalEndTime = 0x8000;
/// Interval end time and thresholds (or control block) stand before it.
constexpr std::uint16_t kFirstCounter = 0x2000;

bool isNumber(const Attribute& attribute)
{
    return attribute.kind != Kind::Octets && attribute.kind != Kind::Table;
}

}  // namespace

std::vector<const Attribute*> pmCounters(const EntityClass& entity)
{
    std::vector<const Attribute*> counters;
    const Attribute* const first = entity.attributeOfMask(kIntervalEndTime);
    if (first == nullptr || first->name != "IntervalEndTime")
        return counters;
    for (const Attribute& attribute : entity.attributes) {
        const bool isCounter = attribute.mask <= kFirstCounter && isNumber(attribute) && !attribute.writable;
        if (isCounter && (entity.readableMask & attribute.mask) != 0)
            counters.push_back(&attribute);
    }
    return counters;
}

const PmCounter* PmSample::find(const Attribute& attribute) const
{
    const auto found = std::find_if(counters.begin(), counters.end(),
                                    [&](const PmCounter& counter) { return counter.attribute == &attribute; });
    return found == counters.end() ? nullptr : &*found;
}

void PmSeries::compare(PmCounter& counter, const PmCounter& before, double seconds, bool& restarted) const
{
    counter.delta = static_cast<std::int64_t>(counter.value - before.value);
    if (counter.value >= before.value) {
        counter.rate = static_cast<double>(counter.value - before.value) / seconds;
        return;
    }
    restarted = true;
    // The running interval began anew, at a moment that nobody knows. A last interval was replaced by another.
    if (m_Interval == PmInterval::Running)
        counter.delta = static_cast<std::int64_t>(counter.value);
}

const PmSample& PmSeries::add(const AttributeValues& values, double seconds, std::string time)
{
    PmSample sample;
    sample.time = std::move(time);
    sample.seconds = seconds;
    const PmSample* const before = m_Samples.empty() ? nullptr : &m_Samples.back();
    for (const AttributeValue& value : values.values) {
        const std::uint64_t number = bigEndian(value.value.data(), value.value.size());
        if (value.attribute->mask == kIntervalEndTime) {
            sample.intervalEndTime = number;
            continue;
        }
        if (std::find(m_Counters.begin(), m_Counters.end(), value.attribute) == m_Counters.end())
            continue;
        PmCounter counter{value.attribute, number, std::nullopt, std::nullopt};
        const PmCounter* const last = before == nullptr ? nullptr : before->find(*value.attribute);
        if (last != nullptr && seconds > before->seconds)
            compare(counter, *last, seconds - before->seconds, sample.restarted);
        sample.counters.push_back(counter);
    }
    if (m_Samples.size() == m_Keep)
        m_Samples.erase(m_Samples.begin());
    m_Samples.push_back(std::move(sample));
    return m_Samples.back();
}

}  // namespace olt
