#ifndef NRVK_IMPL_EXTENDED_MAC_BRIDGE_SERVICE_PROFILE_H
#define NRVK_IMPL_EXTENDED_MAC_BRIDGE_SERVICE_PROFILE_H

#include "impl/OmciMeMacBridgeServiceProfileImpl.h"
#include "implExtended/NoHardware.h"

/// MAC bridge service profile (G.988 9.3.1, class 45): each bridge has a Dot1ag CFM stack (class 305) under its id.
class OmciMeMacBridgeServiceProfileImplExtended : public nrvk::DataPathEntity<OmciMeMacBridgeServiceProfileImpl>
{
public:
    using NoHardware::NoHardware;

    /// Called by the store once the instance stands. 0, or -1 when the companion could not be made.
    static int createOmciMeInstance(unsigned short instance);
    /// Called by the store after the instance has gone. 0, or -1 when there was no companion.
    static int deleteOmciMeInstance(unsigned short instance);
};

#endif
