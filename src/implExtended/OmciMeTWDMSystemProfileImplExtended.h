#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMSYSTEMPROFILEIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMSYSTEMPROFILEIMPLEXTENDED_H

#include "OmciHardwareIfc.h"
#include "impl/OmciMeTWDMSystemProfileImpl.h"
#include "implExtended/LoggedHooks.h"

/// TWDM system profile (class 65401): a value reaches the hardware layer at once, and all six together after the whole
/// Set. Without a hardware layer they are stored.
class OmciMeTWDMSystemProfileImplExtended : public nrvk::LoggedHooks<OmciMeTWDMSystemProfileImpl, 0>
{
public:
    using LoggedHooks::LoggedHooks;

    int setChannelPartitionIndex(unsigned char value) override;
    /// Timers are in milliseconds.
    int setChannelPartitionWaiverTimer(unsigned int value) override;
    int setLodsReinitializationTimer(unsigned int value) override;
    int setLodsProtectionTimer(unsigned int value) override;
    int setDownstreamTuningTimer(unsigned int value) override;
    int setUpstreamTuningTimer(unsigned int value) override;

    int applyConfigurationToHardwareForSet() override;

private:
    template <typename Value>
    int apply(int (OmciHardwareIfc::*operation)(unsigned short instance, Value value), Value value) const;
};

#endif
