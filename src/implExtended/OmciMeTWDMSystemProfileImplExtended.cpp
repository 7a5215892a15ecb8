#include "implExtended/OmciMeTWDMSystemProfileImplExtended.h"

#include "impl/Hardware.h"

template <typename Value>
int OmciMeTWDMSystemProfileImplExtended::apply(int (OmciHardwareIfc::*operation)(unsigned short instance, Value value),
                                               Value value) const
{
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        (hardware->*operation)(m_ManagedEntityInstance, value);
    }
    return 0;
}

int OmciMeTWDMSystemProfileImplExtended::setChannelPartitionIndex(unsigned char value)
{
    OmciMeTWDMSystemProfileImpl::setChannelPartitionIndex(value);
    return apply(&OmciHardwareIfc::setTwdmChannelPartitionIndex, value);
}

int OmciMeTWDMSystemProfileImplExtended::setChannelPartitionWaiverTimer(unsigned int value)
{
    OmciMeTWDMSystemProfileImpl::setChannelPartitionWaiverTimer(value);
    return apply(&OmciHardwareIfc::setTwdmChannelPartitionWaiverTimer, value);
}

int OmciMeTWDMSystemProfileImplExtended::setLodsReinitializationTimer(unsigned int value)
{
    OmciMeTWDMSystemProfileImpl::setLodsReinitializationTimer(value);
    return apply(&OmciHardwareIfc::setTwdmLodsReinitializationTimer, value);
}

int OmciMeTWDMSystemProfileImplExtended::setLodsProtectionTimer(unsigned int value)
{
    OmciMeTWDMSystemProfileImpl::setLodsProtectionTimer(value);
    return apply(&OmciHardwareIfc::setTwdmLodsProtectionTimer, value);
}

int OmciMeTWDMSystemProfileImplExtended::setDownstreamTuningTimer(unsigned int value)
{
    OmciMeTWDMSystemProfileImpl::setDownstreamTuningTimer(value);
    return apply(&OmciHardwareIfc::setTwdmDownstreamTuningTimer, value);
}

int OmciMeTWDMSystemProfileImplExtended::setUpstreamTuningTimer(unsigned int value)
{
    OmciMeTWDMSystemProfileImpl::setUpstreamTuningTimer(value);
    return apply(&OmciHardwareIfc::setTwdmUpstreamTuningTimer, value);
}

int OmciMeTWDMSystemProfileImplExtended::applyConfigurationToHardwareForSet()
{
    NRVK_LOG(6, "Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    TwdmSystemProfile profile{};
    profile.ChannelPartitionIndex = getChannelPartitionIndex(OMCI_ACTION_GET);
    profile.ChannelPartitionWaiverTimer = getChannelPartitionWaiverTimer(OMCI_ACTION_GET);
    profile.LodsReinitializationTimer = getLodsReinitializationTimer(OMCI_ACTION_GET);
    profile.LodsProtectionTimer = getLodsProtectionTimer(OMCI_ACTION_GET);
    profile.DownstreamTuningTimer = getDownstreamTuningTimer(OMCI_ACTION_GET);
    profile.UpstreamTuningTimer = getUpstreamTuningTimer(OMCI_ACTION_GET);
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->applyTwdmSystemProfile(profile);
    }
    return 0;
}
