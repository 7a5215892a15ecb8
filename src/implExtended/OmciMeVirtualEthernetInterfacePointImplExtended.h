#ifndef NRVK_IMPL_EXTENDED_VIRTUAL_ETHERNET_INTERFACE_POINT_H
#define NRVK_IMPL_EXTENDED_VIRTUAL_ETHERNET_INTERFACE_POINT_H

#include "impl/OmciMeVirtualEthernetInterfacePointImpl.h"
#include "implExtended/NoHardware.h"

/// Virtual Ethernet interface point (G.988 9.5.5, class 329).
class OmciMeVirtualEthernetInterfacePointImplExtended
    : public nrvk::DataPathEntity<OmciMeVirtualEthernetInterfacePointImpl>
{
public:
    using NoHardware::NoHardware;

    /// 0 unlocked, 1 locked; anything else is refused with -1. The same value again pushes again.
    int setAdministrativeState(unsigned char value) override;
};

#endif
