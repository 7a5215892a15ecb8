#include "implExtended/OmciMeMacBridgePortConfigurationDataImplExtended.h"

#include "OmciMeMacBridgePortFilterPreassignTableIf.h"
#include "OmciMeMacBridgePortIcmpV6ProcessPreassignTableIf.h"
#include "OmciMeMapperServiceProfile802_1PIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/DataPath.h"

int OmciMeMacBridgePortConfigurationDataImplExtended::createOmciMeInstance(unsigned short instance)
{
    NRVK_LOG(6, "Instance(%hu)", instance);
    if (OmciMeMacBridgePortFilterPreassignTableIf::createManagedEntityInstance(instance, false) == nullptr ||
        OmciMeMacBridgePortIcmpV6ProcessPreassignTableIf::createManagedEntityInstance(instance, false) == nullptr) {
        NRVK_LOG(3, "Failed to create instance(%hu)", instance);
        return -1;
    }
    return 0;
}

int OmciMeMacBridgePortConfigurationDataImplExtended::deleteOmciMeInstance(unsigned short instance)
{
    NRVK_LOG(6, "Instance(%hu)", instance);
    if (!OmciMeMacBridgePortFilterPreassignTableIf::deleteManagedEntityInstance(instance, false) ||
        !OmciMeMacBridgePortIcmpV6ProcessPreassignTableIf::deleteManagedEntityInstance(instance, false)) {
        NRVK_LOG(3, "Failed to delete instance(%hu)", instance);
        return -1;
    }
    return 0;
}

int OmciMeMacBridgePortConfigurationDataImplExtended::setTpPointer(unsigned short value)
{
    NRVK_LOG(6, "TP pointer(%hu)", value);
    OmciMeMacBridgePortConfigurationDataImpl::setTpPointer(value);
    if (m_TpType != getDefaultTpType()) {
        nrvk::provisionBridgePort(*this);
    }
    return 0;
}

int OmciMeMacBridgePortConfigurationDataImplExtended::applyConfigurationToHardwareForSet()
{
    return 0;
}

int OmciMeMacBridgePortConfigurationDataImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    if (m_ManagedEntityInstance == 0) {
        return 0;
    }
    nrvk::removeBridgePortService(m_ManagedEntityInstance);
    switch (m_TpType) {
    case nrvk::TP_TYPE_MAPPER:
        return removeMapper();
    case nrvk::TP_TYPE_ETHERNET_UNI:
        return removeEthernetUni();
    default:
        return 0;
    }
}

int OmciMeMacBridgePortConfigurationDataImplExtended::removeMapper() const
{
    OmciMeMapperServiceProfile802_1PIf* mapper =
        OmciMeMapperServiceProfile802_1PIf::getManagedEntityInstance(m_TpPointer);
    if (mapper == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeMapperInterworkingTps(mapper, mapper->getDefaultInterworkTpPointerForPBitPriority0());
    }
    return 0;
}

int OmciMeMacBridgePortConfigurationDataImplExtended::removeEthernetUni() const
{
    OmciMePptpEthernetUniIf* uni = OmciMePptpEthernetUniIf::getManagedEntityInstance(m_TpPointer);
    if (uni == nullptr) {
        NRVK_LOG(3, "Detected NULL pointer");
        return -1;
    }
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeUniService(uni);
    }
    return 0;
}
