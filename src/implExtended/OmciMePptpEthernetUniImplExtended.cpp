#include "implExtended/OmciMePptpEthernetUniImplExtended.h"

#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/AdministrativeState.h"
#include "implExtended/DataPath.h"
#include "implExtended/EthernetConfigInd.h"

namespace {

/// All ones locks an Ethernet UNI; on the other ports it is invalid.
constexpr unsigned char kLockedAllOnes = 0xFF;

bool isAutodetectionConfig(unsigned char value)
{
    return value <= 5 || (value >= 0x10 && value <= 0x14) || value == 0x20 || value == 0x30;
}

}  // namespace

int OmciMePptpEthernetUniImplExtended::setAdministrativeState(unsigned char value)
{
    NRVK_LOG(6, "Administrative state(%hhu)", value);
    const unsigned char state = value == kLockedAllOnes ? nrvk::kLocked : value;
    if (state > nrvk::kLocked) {
        NRVK_LOG(3, "Invalid administrative state(%hhu)", value);
        return -1;
    }
    if (state == m_AdministrativeState) {
        return 0;
    }
    OmciMePptpEthernetUniImpl::setAdministrativeState(state);
    if (nrvk::hardwareOrLog() == nullptr) {
        return 0;
    }
    if (nrvk::findBridgePort(nrvk::BridgePortKey::ethernetUni, m_ManagedEntityInstance) == nullptr) {
        NRVK_LOG(6, "Data service is not yet provisioned. Received request to update admin state to (%hhu)", state);
        pushAdministrativeState(state);
    } else if (state == nrvk::kUnlocked) {
        unlock();
    } else {
        lock();
    }
    return 0;
}

void OmciMePptpEthernetUniImplExtended::unlock()
{
    pushAdministrativeState(nrvk::kUnlocked);
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->provisionUniService(this);
    }
}

void OmciMePptpEthernetUniImplExtended::lock()
{
    setConfigInd(getDefaultConfigInd());
    setOperationalState(nrvk::kDisabled);
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeUniService(this);
    }
    pushAdministrativeState(nrvk::kLocked);
}

void OmciMePptpEthernetUniImplExtended::pushAdministrativeState(unsigned char state)
{
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->setUniAdminState(m_ManagedEntityInstance, state);
    }
}

int OmciMePptpEthernetUniImplExtended::setOperationalState(unsigned char value)
{
    NRVK_LOG(6, "OperationalState(%u)", value);
    OmciMePptpEthernetUniImpl::setOperationalState(value);
    return 0;
}

unsigned char OmciMePptpEthernetUniImplExtended::getOperationalState(EnumOmciAction action) const
{
    NRVK_LOG(6, "getOperationalState 0x%x", m_ManagedEntityInstance);
    OmciHardwareIfc* layer = nrvk::hardwareOrLog();
    if (layer == nullptr) {
        return 0;
    }
    const unsigned char state = layer->getUniOperationalState(action, m_ManagedEntityInstance);
    NRVK_LOG(6, "OmciMePptpEthernetUniImplExtended: operationalState(%d) \n", state);
    return state;
}

unsigned char OmciMePptpEthernetUniImplExtended::getConfigInd(EnumOmciAction action) const
{
    NRVK_LOG(6, "getConfigInd of ME Instance 0x%x", m_ManagedEntityInstance);
    OmciHardwareIfc* layer = nrvk::hardwareOrLog();
    if (layer == nullptr) {
        return 0;
    }
    const unsigned int speed = layer->getUniLinkSpeed(action, m_ManagedEntityInstance);
    const unsigned char duplex = layer->getUniDuplex(action, m_ManagedEntityInstance);
    const unsigned char code = nrvk::ethernetConfigInd(speed, duplex);
    NRVK_LOG(6, "OmciMePptpEthernetUniImplExtended: configInd(%d) \n", code);
    return code;
}

int OmciMePptpEthernetUniImplExtended::setAutodetectionConfig(unsigned char value)
{
    NRVK_LOG(6, "Auto detection config(%hhu)", value);
    if (!isAutodetectionConfig(value)) {
        NRVK_LOG(3, "Invalid auto detection config(%hhu)", value);
        return -1;
    }
    if (value == m_AutodetectionConfig) {
        return 0;
    }
    OmciMePptpEthernetUniImpl::setAutodetectionConfig(value);
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->setUniAutodetection(m_ManagedEntityInstance, value);
    }
    return 0;
}

int OmciMePptpEthernetUniImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    pushAdministrativeState(nrvk::kLocked);
    return 0;
}
