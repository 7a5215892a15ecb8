#ifndef NRVK_IMPL_EXTENDED_OMCI_ME_ONT_SYSTEM_H
#define NRVK_IMPL_EXTENDED_OMCI_ME_ONT_SYSTEM_H

#include "impl/OmciMeONTSystemImpl.h"
#include "implExtended/NoHardware.h"

/// ONT system (vendor class 65300): the OLT sets the clock of the ONU. The work is done at the setter.
class OmciMeONTSystemImplExtended : public nrvk::NoHardware<OmciMeONTSystemImpl, -1>
{
public:
    using NoHardware::NoHardware;

    /// `value`: 7 bytes of local time: year (2, network order), month, day, hour, minute, second.
    int setTimeOfDay(const unsigned char* value) override;
};

#endif
