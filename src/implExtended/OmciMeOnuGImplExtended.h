#ifndef NRVK_IMPL_EXTENDED_OMCI_ME_ONU_G_H
#define NRVK_IMPL_EXTENDED_OMCI_ME_ONU_G_H

#include "impl/OmciMeOnuGImpl.h"

/// ONU-G (G.988 9.1.1, class 256): battery backup, and the ONU's administrative state as the state of every GEM port.
class OmciMeOnuGImplExtended : public OmciMeOnuGImpl
{
public:
    using OmciMeOnuGImpl::OmciMeOnuGImpl;

    /// The hardware hears of a change only.
    int setBatteryBackup(unsigned char value) override;
    /// 0 unlocked, 1 locked; -1 for any other. A change is stored and goes to the GEM ports of all interworking TPs;
    /// -1, with the rest of the ports left out, at an interworking TP whose GEM port is missing.
    int setAdministrativeState(unsigned char state) override;
    int applyConfigurationToHardwareForSet() override;
    int eraseConfigurationFromHardware() override;
};

#endif
