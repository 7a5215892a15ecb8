#ifndef NRVK_COUNTER_FEED_H
#define NRVK_COUNTER_FEED_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "CounterRecords.h"
#include "OmciManagedEntityRegistrar.h"

namespace nrvk {

/// Every PM entity has the interval end time first, its thresholds second, and its counters from here down.
constexpr unsigned short kIntervalEndTime = 0x8000;
constexpr unsigned short kFirstCounter = 0x2000;

/// One counter of a PM entity, through the registrar's picture; failures are the registrar's to log.
template <typename T>
void feedCounter(unsigned short classId, unsigned short instance, unsigned short attributeMask, T value)
{
    static_assert(std::is_same_v<T, std::uint16_t> || std::is_same_v<T, std::uint32_t> ||
                  std::is_same_v<T, std::uint64_t>);
    // 64 bits have two names of the same width; the registrar knows one.
    using Width = std::conditional_t<sizeof(T) == sizeof(unsigned long long), unsigned long long, T>;
    OmciManagedEntityRegistrar::getInstance()->updateManagedEntity(classId, instance, attributeMask,
                                                                   static_cast<Width>(value));
}

/// Counters in the order of their attributes, from the first one down.
template <typename... Counters>
void feedCounters(unsigned short classId, unsigned short instance, Counters... counters)
{
    unsigned int attributeMask = 2U * kFirstCounter;
    ((attributeMask >>= 1, feedCounter(classId, instance, static_cast<unsigned short>(attributeMask), counters)), ...);
}

}  // namespace nrvk

#endif
