#include "pm/TrafficModel.h"

#include <array>

namespace {
/// So many events in 1000 seconds.
std::uint64_t eventsUntil(std::uint64_t perThousandSeconds, std::chrono::microseconds time)
{
    constexpr std::uint64_t microseconds = 1'000'000'000;
    const auto whole = static_cast<std::uint64_t>(time.count());
    // In two parts, so that years of the fastest counters do not overflow.
    return whole / microseconds * perThousandSeconds + whole % microseconds * perThousandSeconds / microseconds;
}

/// No two neighbours alike.
std::uint64_t loadOf(const PmSource& source)
{
    return 1 + (source.instance * 7U + source.family) % 5U;
}

struct FrameSize
{
    std::uint64_t perThousandSeconds;
    std::uint64_t meanOctets;
};
/// The buckets of the Ethernet frame counters, as Internet traffic fills them.
constexpr std::array<FrameSize, 6> kFrameSizes = {
    {{11'800, 64}, {9'400, 92}, {3'100, 180}, {1'700, 360}, {2'300, 760}, {21'700, 1452}}};

/// The errors of an Ethernet direction.
constexpr std::uint64_t kDropEvents = 33;
constexpr std::uint64_t kCrcErrored = 21;
constexpr std::uint64_t kUndersize = 4;
constexpr std::uint64_t kOversize = 2;
constexpr std::uint64_t kOversizeOctets = 1600;
constexpr std::uint64_t kUndersizeOctets = 40;

void appendFrames(std::uint64_t load, std::chrono::microseconds time, counters::Values& values)
{
    const std::uint64_t undersize = eventsUntil(kUndersize * load, time);
    const std::uint64_t oversize = eventsUntil(kOversize * load, time);
    std::array<std::uint64_t, kFrameSizes.size()> buckets{};
    std::uint64_t frames = undersize + oversize;
    std::uint64_t octets = undersize * kUndersizeOctets + oversize * kOversizeOctets;
    for (std::size_t size = 0; size < buckets.size(); ++size) {
        buckets[size] = eventsUntil(kFrameSizes[size].perThousandSeconds * load, time);
        frames += buckets[size];
        octets += buckets[size] * kFrameSizes[size].meanOctets;
    }
    values.insert(values.end(), {eventsUntil(kDropEvents * load, time), octets, frames, frames / 220, frames / 45,
                                 eventsUntil(kCrcErrored * load, time), undersize, oversize});
    values.insert(values.end(), buckets.begin(), buckets.end());
}

void appendGemPort(std::uint64_t load, std::chrono::microseconds time, counters::Values& values)
{
    const std::uint64_t transmitted = eventsUntil(180'000 * load, time);
    const std::uint64_t received = eventsUntil(420'000 * load, time);
    values.insert(values.end(), {0, transmitted, received, 0, received * 1010, transmitted * 310,
                                 eventsUntil(8 * load, time), eventsUntil(3 * load, time)});
}

/// Each counter of a family at its own pace.
void appendRates(std::initializer_list<std::uint64_t> rates, std::uint64_t load, std::chrono::microseconds time,
                 counters::Values& values)
{
    for (const std::uint64_t rate : rates) {
        values.push_back(eventsUntil(rate * load, time));
    }
}

/// Rare events, rarer from counter to counter.
void appendRareEvents(std::size_t count, std::uint64_t load, std::chrono::microseconds time, counters::Values& values)
{
    for (std::size_t counter = 0; counter < count; ++counter) {
        values.push_back(eventsUntil((40 - counter % 40) * load, time));
    }
}
}  // namespace

counters::Values trafficUntil(const PmSource& source, std::chrono::microseconds time)
{
    const std::uint64_t load = loadOf(source);
    counters::Values values;
    switch (source.family) {
    case 24:
    case 334:
    case 425:
        appendFrames(load, time, values);
        appendFrames(3 * load, time, values);
        break;
    case 341:
        appendGemPort(load, time, values);
        break;
    case 312:
        appendRates({25'000, 12'000, 50, 5'000'000, 10}, load, time, values);
        break;
    case 276:
        appendRates({65}, load, time, values);
        break;
    case 65414:
        appendRates({2'000, 700, 4}, load, time, values);
        break;
    case 65407:
        appendRates({190'000, 8'000, 430'000, 12, 60, 3, 58'000'000, 430'000'000}, load, time, values);
        break;
    case 65406:
        values.push_back(eventsUntil(311'040'000'000, time));
        appendRareEvents(counterCount(source.family) - 1, load, time, values);
        break;
    default:
        appendRareEvents(counterCount(source.family), load, time, values);
        break;
    }
    return values;
}
