#include "implExtended/OmciMeMacBridgePortFilterPreassignTableImplExtended.h"

#include "impl/Log.h"
#include "implExtended/DataPath.h"

int OmciMeMacBridgePortFilterPreassignTableImplExtended::setBridgeMgmtInfoFiltering(unsigned char value)
{
    NRVK_LOG(6, "Bridge management information filtering(%hhu)", value);
    OmciMeMacBridgePortFilterPreassignTableImpl::setBridgeMgmtInfoFiltering(value);
    auto* port = OmciMeMacBridgePortConfigurationDataIf::getFirstManagedEntityInstance();
    while (port != nullptr) {
        if (port->getManagedEntityInstance() == m_ManagedEntityInstance) {
            nrvk::provisionBridgePort(*port);
            return 0;
        }
        port = OmciMeMacBridgePortConfigurationDataIf::getNextManagedEntityInstance(port->getManagedEntityInstance());
    }
    NRVK_LOG(3, "MAC bridge port config data not found");
    return -1;
}
