#ifndef ONT_OMCI_MANAGED_ENTITY_OMCI_ME_ETHERNET_FRAME_EXTENDED_PM_COMMON_IMPL_EXTENDED_H
#define ONT_OMCI_MANAGED_ENTITY_OMCI_ME_ETHERNET_FRAME_EXTENDED_PM_COMMON_IMPL_EXTENDED_H

#include <atomic>

#include "Export.h"

/// The count of finished 15-minute intervals, one for all PM entities of the process: what the interval end time of
/// Ethernet frame PM (G.988 9.3.30 and 9.3.31, classes 322 and 321) and GEM port PM (9.2.13, 341, and class 267) reads.
///
/// The host drives the intervals and steps the count at the end of each; the library only reads it. Any thread.
class OmciMeEthernetFrameExtendedPMCommonImplExtended
{
public:
    /// The count of finished intervals, modulo 256.
    NRVK_EXPORT static unsigned char getIntervalCounter();
    /// Sets the count, for a host that keeps it over a restart.
    NRVK_EXPORT static void setIntervalCounter(unsigned char intervalCounter);
    /// 255 is followed by 0.
    NRVK_EXPORT static void incrementIntervalCounter();
    /// Sets the count to 0, as after synchronize time.
    NRVK_EXPORT static void resetIntervalCounter();

private:
    static std::atomic<unsigned char> IntervalCounter;
};

#endif
