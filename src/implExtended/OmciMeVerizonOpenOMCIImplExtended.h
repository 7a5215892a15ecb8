#ifndef NRVK_IMPL_EXTENDED_OMCIMEVERIZONOPENOMCIIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEVERIZONOPENOMCIIMPLEXTENDED_H

#include "impl/OmciMeVerizonOpenOMCIImpl.h"
#include "implExtended/NoHardware.h"

/// Verizon OpenOMCI (class 65400): the version in use never passes the one that the ONU supports.
class OmciMeVerizonOpenOMCIImplExtended : public nrvk::NoHardware<OmciMeVerizonOpenOMCIImpl, -1>
{
public:
    using NoHardware::NoHardware;

    /// -1, and nothing stored, above the supported version.
    int setSpecificationVersionInUse(unsigned int value) override;
};

#endif
