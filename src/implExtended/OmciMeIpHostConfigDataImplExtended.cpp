#include "implExtended/OmciMeIpHostConfigDataImplExtended.h"

#include <algorithm>

#include "impl/Log.h"
#include "implExtended/DataPath.h"

namespace {

constexpr unsigned char kDynamicAddressing = 0x01;
constexpr std::size_t kAddressBytes = 4;

bool isUnset(const unsigned char* address)
{
    return std::all_of(address, address + kAddressBytes, [](unsigned char byte) { return byte == 0; });
}

}  // namespace

int OmciMeIpHostConfigDataImplExtended::setIpOptions(unsigned char value)
{
    NRVK_LOG(6, "IP options(%hhu)", value);
    return OmciMeIpHostConfigDataImpl::setIpOptions(value);
}

int OmciMeIpHostConfigDataImplExtended::setIpAddress(const unsigned char* value)
{
    NRVK_LOG(6, "IP address(%u.%u.%u.%u)", value[0], value[1], value[2], value[3]);
    return OmciMeIpHostConfigDataImpl::setIpAddress(value);
}

int OmciMeIpHostConfigDataImplExtended::setMask(const unsigned char* value)
{
    NRVK_LOG(6, "Mask(%u.%u.%u.%u)", value[0], value[1], value[2], value[3]);
    return OmciMeIpHostConfigDataImpl::setMask(value);
}

int OmciMeIpHostConfigDataImplExtended::setGateway(const unsigned char* value)
{
    NRVK_LOG(6, "Gateway(%u.%u.%u.%u)", value[0], value[1], value[2], value[3]);
    return OmciMeIpHostConfigDataImpl::setGateway(value);
}

bool OmciMeIpHostConfigDataImplExtended::hasWhatStaticAddressingNeeds() const
{
    return !isUnset(getMask(OMCI_ACTION_GET)) && !isUnset(getIpAddress(OMCI_ACTION_GET)) &&
           !isUnset(getGateway(OMCI_ACTION_GET));
}

int OmciMeIpHostConfigDataImplExtended::applyConfigurationToHardwareForSet()
{
    NRVK_LOG(4, "Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    const bool dynamic = (getIpOptions(OMCI_ACTION_GET) & kDynamicAddressing) != 0;
    if (!dynamic && !hasWhatStaticAddressingNeeds()) {
        return 0;
    }
    auto* port = nrvk::findBridgePort(nrvk::BridgePortKey::ipHost, m_ManagedEntityInstance);
    if (port == nullptr) {
        NRVK_LOG(3, "MAC bridge port config data not found");
        return -1;
    }
    nrvk::provisionBridgePort(*port);
    return 0;
}

int OmciMeIpHostConfigDataImplExtended::eraseConfigurationFromHardware()
{
    return 0;
}

void OmciMeIpHostConfigDataImplExtended::layer2Provisioning()
{
    auto* port = nrvk::findBridgePort(nrvk::BridgePortKey::ipHost, m_ManagedEntityInstance);
    if (port == nullptr) {
        NRVK_LOG(4, "UNI MAC bridge port not linked to IP Host");
        return;
    }
    nrvk::provisionBridgePort(*port);
}
