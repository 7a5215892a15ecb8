#ifndef NRVK_IMPL_EXTENDED_OMCI_ME_OLT_G_H
#define NRVK_IMPL_EXTENDED_OMCI_ME_OLT_G_H

#include "impl/OmciMeOltGImpl.h"
#include "implExtended/NoHardware.h"

/// OLT-G (G.988 9.12.2, class 131): the OLT's identity decides the ids of the IP hosts, and its time of day goes to the
/// optical layer. All work is done at the setters.
class OmciMeOltGImplExtended : public nrvk::NoHardware<OmciMeOltGImpl, -1>
{
public:
    using NoHardware::NoHardware;

    /// `value`: four ASCII letters, the first in the top byte; four blanks while no vendor is known.
    int setOltVendorId(unsigned int value) override;
    /// `value`: 14 bytes in network order: super-frame counter (4), seconds (6), nanoseconds (4).
    int setTimeOfDayInformation(const unsigned char* value) override;
};

#endif
