#ifndef NRVK_IMPL_EXTENDED_MAC_BRIDGE_PORT_CONFIGURATION_DATA_H
#define NRVK_IMPL_EXTENDED_MAC_BRIDGE_PORT_CONFIGURATION_DATA_H

#include "impl/OmciMeMacBridgePortConfigurationDataImpl.h"

/// MAC bridge port configuration data (G.988 9.3.4, class 47): the entity in which the data path meets.
///
/// Each port has a filter preassign table (class 79) and an ICMPv6 process preassign table (class 348) under its id.
class OmciMeMacBridgePortConfigurationDataImplExtended : public OmciMeMacBridgePortConfigurationDataImpl
{
public:
    using OmciMeMacBridgePortConfigurationDataImpl::OmciMeMacBridgePortConfigurationDataImpl;

    /// Called by the store once the instance stands. 0, or -1 when a companion could not be made.
    static int createOmciMeInstance(unsigned short instance);
    /// Called by the store after the instance has gone. -1 at the first companion that is not there.
    static int deleteOmciMeInstance(unsigned short instance);

    /// Provisions the port when its TP type is known; it precedes the pointer in a create. Always 0.
    int setTpPointer(unsigned short value) override;
    int applyConfigurationToHardwareForSet() override;
    /// Removes the port's service, and that of the mapper or UNI behind it. -1 when that entity has gone.
    /// Port 0 is never in the hardware layer, so that nothing is removed for it.
    int eraseConfigurationFromHardware() override;

private:
    int removeMapper() const;
    int removeEthernetUni() const;
};

#endif
