#include "implExtended/OmciMeOnuGImplExtended.h"

#include "OmciMeGemInterworkingTpIf.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeMulticastGemInterworkingTpIf.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

/// Passes the state on to the GEM port of each interworking TP of a class; the ports' entities stay as they are.
template <typename If>
int setStateOfGemPorts(unsigned char state)
{
    const If* interworkingTp = If::getFirstManagedEntityInstance();
    while (interworkingTp != nullptr) {
        const unsigned short instance = interworkingTp->getManagedEntityInstance();
        const OmciMeGemPortNetworkCtpIf* ctp = OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(
            interworkingTp->getGemPortNetworkCtpConnPointer(OMCI_ACTION_GET));
        if (ctp == nullptr) {
            NRVK_LOG(3, "Detected NULL pointer");
            return -1;
        }
        if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
            hardware->setGemPortAdminState(instance, ctp->getPortId(OMCI_ACTION_GET), state);
        }
        interworkingTp = If::getNextManagedEntityInstance(instance);
    }
    return 0;
}

}  // namespace

int OmciMeOnuGImplExtended::setBatteryBackup(unsigned char value)
{
    NRVK_LOG(6, "Battery backup(%hhu)", value);
    if (value == getBatteryBackup(OMCI_ACTION_GET)) {
        return 0;
    }
    OmciMeOnuGImpl::setBatteryBackup(value);
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->setBatteryBackup(value);
    }
    return 0;
}

int OmciMeOnuGImplExtended::setAdministrativeState(unsigned char state)
{
    NRVK_LOG(6, "Administrative state(%hhu)", state);
    constexpr unsigned char locked = 1;
    if (state > locked) {
        NRVK_LOG(3, "Invalid administrative state(%hhu)", state);
        return -1;
    }
    if (state == getAdministrativeState(OMCI_ACTION_GET)) {
        return 0;
    }
    OmciMeOnuGImpl::setAdministrativeState(state);
    if (setStateOfGemPorts<OmciMeGemInterworkingTpIf>(state) != 0) {
        return -1;
    }
    return setStateOfGemPorts<OmciMeMulticastGemInterworkingTpIf>(state);
}

int OmciMeOnuGImplExtended::applyConfigurationToHardwareForSet()
{
    return 0;
}

int OmciMeOnuGImplExtended::eraseConfigurationFromHardware()
{
    // At an erase no hardware is no fault.
    if (OmciHardwareIfc* hardware = nrvk::hardware()) {
        hardware->setBatteryBackup(0);
    }
    return 0;
}
