#ifndef SIMULATOR_PM_COUNTER_VALUES_H
#define SIMULATOR_PM_COUNTER_VALUES_H

#include <algorithm>
#include <limits>
#include <type_traits>

#include "JsonValues.h"
#include "host/pm/IntervalCounters.h"

/// The records of counters as rows of numbers, in field order, records within records one after the other. The interval
/// end times among the fields (the only ones of one byte) are no counters and are left out.
namespace counters {

using Values = omci::IntervalCounters::Values;

template <typename Record>
void append(const Record& record, Values& values)
{
    Record copy = record;
    records::fields(copy, [&values](const char*, auto& field) {
        using Field = std::decay_t<decltype(field)>;
        if constexpr (::values::IsRecord<Field>::value) {
            append(field, values);
        } else if constexpr (sizeof(Field) > 1) {
            values.push_back(field);
        }
    });
}

/// Takes the fields from `next` on, each no more than it can hold.
template <typename Record>
void take(Record& record, const Values& values, std::size_t& next, unsigned char intervalEndTime)
{
    records::fields(record, [&](const char*, auto& field) {
        using Field = std::decay_t<decltype(field)>;
        if constexpr (::values::IsRecord<Field>::value) {
            take(field, values, next, intervalEndTime);
        } else if constexpr (sizeof(Field) > 1) {
            constexpr std::uint64_t full = std::numeric_limits<Field>::max();
            field = static_cast<Field>(std::min<std::uint64_t>(next < values.size() ? values[next] : 0, full));
            ++next;
        } else {
            field = intervalEndTime;
        }
    });
}

}  // namespace counters

#endif
