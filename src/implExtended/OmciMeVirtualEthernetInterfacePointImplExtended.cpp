#include "implExtended/OmciMeVirtualEthernetInterfacePointImplExtended.h"

#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/AdministrativeState.h"

int OmciMeVirtualEthernetInterfacePointImplExtended::setAdministrativeState(unsigned char value)
{
    NRVK_LOG(6, "Administrative state(%hhu)", value);
    if (value > nrvk::kLocked) {
        NRVK_LOG(3, "Invalid administrative state(%hhu)", value);
        return -1;
    }
    OmciMeVirtualEthernetInterfacePointImpl::setAdministrativeState(value);
    if (value == nrvk::kUnlocked) {
        if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
            layer->provisionVeip(this);
            setOperationalState(nrvk::kEnabled);
        }
        return 0;
    }
    setOperationalState(nrvk::kDisabled);
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeVeip(this);
    }
    return 0;
}
