#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELIMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelImpl.h"
#include "implExtended/LoggedHooks.h"

/// TWDM channel (class 65402): the hardware layer is asked for the channel's state at each read.
class OmciMeTWDMChannelImplExtended : public nrvk::LoggedHooks<OmciMeTWDMChannelImpl, -1>
{
public:
    using LoggedHooks::LoggedHooks;

    unsigned char getActiveChannelIndication(EnumOmciAction action) const override;
    unsigned char getOperationalChannelIndication(EnumOmciAction action) const override;
    unsigned char getDownstreamWavelengthChannel(EnumOmciAction action) const override;
    unsigned char getUpstreamWavelengthChannel(EnumOmciAction action) const override;

private:
    void refresh(EnumOmciAction action) const;
};

#endif
