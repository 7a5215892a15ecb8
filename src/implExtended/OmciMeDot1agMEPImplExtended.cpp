#include "implExtended/OmciMeDot1agMEPImplExtended.h"

#include "OmciMeDot1agMEPstatusIf.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

/// Without a hardware layer there is no answer to complain about.
bool isUnresolved(unsigned short layer2EntityPointer, unsigned char layer2Type)
{
    constexpr unsigned char lastLogicalPort = 4;
    unsigned short bridgeServiceProfile = 0;
    OmciHardwareIfc* hardware = nrvk::hardwareOrLog();
    return hardware != nullptr && hardware->resolveDot1agLayer2Entity(layer2EntityPointer, layer2Type,
                                                                      &bridgeServiceProfile) > lastLogicalPort;
}

}  // namespace

OmciMeDot1agMEPImplExtended::OmciMeDot1agMEPImplExtended(unsigned short instance, bool createdByOlt)
    : NoHardware(instance, createdByOlt)
{
    if (OmciMeDot1agMEPstatusIf::createManagedEntityInstance(instance, true) == nullptr) {
        NRVK_LOG(3, "Failed to create MepStatus instance(%hu)", instance);
    }
}

OmciMeDot1agMEPImplExtended::~OmciMeDot1agMEPImplExtended()
{
    bool isDeleted = false;
    try {
        isDeleted = OmciMeDot1agMEPstatusIf::deleteManagedEntityInstance(m_ManagedEntityInstance, true);
    } catch (...) {
        // Nothing may leave a destructor.
        isDeleted = false;
    }
    if (!isDeleted) {
        NRVK_LOG_IF_POSSIBLE(3, "Failed to delete MepStatus instance(%hu)", m_ManagedEntityInstance);
    }
}

int OmciMeDot1agMEPImplExtended::setLayer2EntityPointer(unsigned short value)
{
    if (isUnresolved(value, getLayer2Type(OMCI_ACTION_GET))) {
        NRVK_LOG(3, "Failed to get LogPortNo/MbspPointer for L2Ptr (%hx)", value);
    }
    return OmciMeDot1agMEPImpl::setLayer2EntityPointer(value);
}

int OmciMeDot1agMEPImplExtended::setLayer2Type(unsigned char value)
{
    const unsigned short pointer = getLayer2EntityPointer(OMCI_ACTION_GET);
    if (isUnresolved(pointer, value)) {
        NRVK_LOG(3, "Failed to get LogPortNo/MbspPointer for L2Ptr (%hu)", pointer);
    }
    return OmciMeDot1agMEPImpl::setLayer2Type(value);
}
