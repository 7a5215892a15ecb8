#ifndef NRVK_IMPL_EXTENDED_OMCI_ME_ONU3_G_H
#define NRVK_IMPL_EXTENDED_OMCI_ME_ONU3_G_H

#include "impl/OmciMeONU3GImpl.h"
#include "implExtended/NoHardware.h"

/// ONU3-G (vendor class 65422): attributes only.
class OmciMeONU3GImplExtended : public nrvk::NoHardware<OmciMeONU3GImpl, -1>
{
public:
    using NoHardware::NoHardware;
};

#endif
