#include "implExtended/OmciMeTWDMChannelImplExtended.h"

#include "implExtended/PerformanceMonitoring.h"

void OmciMeTWDMChannelImplExtended::refresh(EnumOmciAction action) const
{
    nrvk::refreshByAction(&OmciHardwareIfc::refreshTwdmChannel, action, m_ManagedEntityInstance);
}

unsigned char OmciMeTWDMChannelImplExtended::getActiveChannelIndication(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeTWDMChannelImpl::getActiveChannelIndication(OMCI_ACTION_GET);
}

unsigned char OmciMeTWDMChannelImplExtended::getOperationalChannelIndication(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeTWDMChannelImpl::getOperationalChannelIndication(OMCI_ACTION_GET);
}

unsigned char OmciMeTWDMChannelImplExtended::getDownstreamWavelengthChannel(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeTWDMChannelImpl::getDownstreamWavelengthChannel(OMCI_ACTION_GET);
}

unsigned char OmciMeTWDMChannelImplExtended::getUpstreamWavelengthChannel(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeTWDMChannelImpl::getUpstreamWavelengthChannel(OMCI_ACTION_GET);
}
