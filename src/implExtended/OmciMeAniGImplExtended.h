#ifndef NRVK_IMPL_EXTENDED_OMCI_ME_ANI_G_H
#define NRVK_IMPL_EXTENDED_OMCI_ME_ANI_G_H

#include "impl/OmciMeAniGImpl.h"
#include "implExtended/NoHardware.h"

/// ANI-G (G.988 9.2.1, class 263): optical levels are measured at each read, whatever the read is for.
class OmciMeAniGImplExtended : public nrvk::NoHardware<OmciMeAniGImpl, -1>
{
public:
    using NoHardware::NoHardware;

    /// Units of 0.002 dB above 1 mW, two's complement. Without an answer of the hardware the last level is read.
    unsigned short getOpticalSignalLevel(EnumOmciAction action) const override;
    /// The same for the level sent.
    unsigned short getTransmitOpticalLevel(EnumOmciAction action) const override;
};

#endif
