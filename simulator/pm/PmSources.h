#ifndef SIMULATOR_PM_PM_SOURCES_H
#define SIMULATOR_PM_PM_SOURCES_H

#include <cstddef>
#include <optional>
#include <set>
#include <vector>

#include "pm/CounterValues.h"

/// Where the simulated hardware counts: a UNI, a GEM port, a TWDM channel ... One source may be seen by several PM
/// entities, as the two directions of a UNI are.
struct PmSource
{
    unsigned short family;    ///< see counterFamily
    unsigned short instance;  ///< see counterInstance; GEM ports go by port id

    bool operator<(const PmSource& other) const
    {
        return family != other.family ? family < other.family : instance < other.instance;
    }
};

/// The part of a source that one PM entity shows.
struct PmEntity
{
    static constexpr std::size_t kNotCounted = ~std::size_t{0};

    unsigned short classId;
    unsigned short instance;
    PmSource source;
    /// The place of each counter attribute, from mask 0x2000 on, among the source's counters.
    std::vector<std::size_t> places;

    /// The entity's counters, out of its source's; 0 for those that the hardware does not count.
    counters::Values valuesOf(const counters::Values& source) const;
};

/// Nothing when the hardware does not count for the class, or the entity leads to no source (a GEM port PM without its
/// CTP, a bridge port that is none of a UNI).
std::optional<PmEntity> pmEntity(unsigned short classId, unsigned short instance);
/// All that exist, by class and instance.
std::vector<PmEntity> allPmEntities();

/// How many counters a source has; 0 for a family that is not counted.
std::size_t counterCount(unsigned short family);
/// Counters that were told, as checkedCounters has them.
counters::Values toldCounters(unsigned short family, const Json& record);

#endif
