#ifndef HOST_PM_PM_CONTROL_BLOCK_H
#define HOST_PM_PM_CONTROL_BLOCK_H

#include <cstdint>

#include "host/ByteOrder.h"

namespace omci {

/// The control block of the extended Ethernet frame PM entities (G.988 9.3.32 and 9.3.34, classes 334 and 425), as far
/// as it tells the host how to count. Counters go by their place among the counter attributes, from 1.
class PmControlBlock
{
public:
    /// `octets` are the attribute's 16, in network order, which are read at once.
    explicit PmControlBlock(const std::uint8_t* octets)
        : m_ThresholdData(read16(octets)), m_ParentClass(read16(octets + 2)), m_ParentInstance(read16(octets + 4)),
          m_AccumulationDisable(read16(octets + 6)), m_AlertDisable(read16(octets + 8)),
          m_ControlFields(read16(octets + 10))
    {}

    /// Instance of the threshold data entity.
    std::uint16_t thresholdData() const { return m_ThresholdData; }
    /// Class of the entity whose traffic is counted.
    std::uint16_t parentClass() const { return m_ParentClass; }
    /// Instance of the entity whose traffic is counted.
    std::uint16_t parentInstance() const { return m_ParentInstance; }
    /// Whether accumulation is on for the counter.
    bool counts(unsigned counter) const { return isEnabled(m_AccumulationDisable, counter); }
    /// Whether threshold crossing alerts are on for the counter.
    bool alerts(unsigned counter) const { return isEnabled(m_AlertDisable, counter); }
    /// Whether the counters go on over the intervals.
    bool isContinuous() const { return (m_ControlFields & 1) != 0; }

private:
    /// Both fields have a bit for each counter and, above those of the fourteen, one for all of them.
    static bool isEnabled(std::uint16_t disabled, unsigned counter)
    {
        constexpr unsigned all = 0x4000;
        return (disabled & all) == 0 && (disabled >> (counter - 1) & 1) == 0;
    }

    std::uint16_t m_ThresholdData;
    std::uint16_t m_ParentClass;
    std::uint16_t m_ParentInstance;
    std::uint16_t m_AccumulationDisable;
    std::uint16_t m_AlertDisable;
    std::uint16_t m_ControlFields;
};

}  // namespace omci

#endif
