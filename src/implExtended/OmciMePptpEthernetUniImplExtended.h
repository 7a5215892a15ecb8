#ifndef NRVK_IMPL_EXTENDED_PPTP_ETHERNET_UNI_H
#define NRVK_IMPL_EXTENDED_PPTP_ETHERNET_UNI_H

#include "impl/OmciMePptpEthernetUniImpl.h"
#include "implExtended/NoHardware.h"

/// Physical path termination point Ethernet UNI (G.988 9.5.1, class 11).
///
/// Operational state and configuration indication are read live. An unlock enables the port before its service is
/// pushed; a lock takes the service away first.
class OmciMePptpEthernetUniImplExtended : public nrvk::DataPathEntity<OmciMePptpEthernetUniImpl>
{
public:
    using NoHardware::NoHardware;

    /// 0 unlocked, 1 locked; 0xFF counts as locked, anything else is refused with -1.
    int setAdministrativeState(unsigned char value) override;
    int setOperationalState(unsigned char value) override;
    /// Live: 0 enabled, 1 disabled; 0 without hardware.
    unsigned char getOperationalState(EnumOmciAction action) const override;
    /// Live; 0 without hardware.
    unsigned char getConfigInd(EnumOmciAction action) const override;
    /// -1 for a value that G.988 does not define.
    int setAutodetectionConfig(unsigned char value) override;
    int eraseConfigurationFromHardware() override;

private:
    void unlock();
    void lock();
    void pushAdministrativeState(unsigned char state);
};

#endif
