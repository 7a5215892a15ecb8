#include "implExtended/OmciMeVlanTaggingFilterDataImplExtended.h"

#include "impl/Log.h"
#include "implExtended/DataPath.h"

int OmciMeVlanTaggingFilterDataImplExtended::setNumberOfEntries(unsigned char value)
{
    NRVK_LOG(6, "Number of entries(%hhu)", value);
    OmciMeVlanTaggingFilterDataImpl::setNumberOfEntries(value);
    auto* port = nrvk::findBridgePort(nrvk::BridgePortKey::vlanTaggingFilter, m_ManagedEntityInstance);
    if (port == nullptr) {
        NRVK_LOG(3, "MAC bridge port config data(%hu) not found", m_ManagedEntityInstance);
        return -1;
    }
    nrvk::provisionBridgePort(*port);
    return 0;
}

int OmciMeVlanTaggingFilterDataImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    const auto* port = OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(m_ManagedEntityInstance);
    if (port != nullptr) {
        nrvk::removeBridgePortService(port->getManagedEntityInstance());
    }
    return 0;
}
