// Instance ids of the start-up table, by index.
#include "OmciManagedEntitiesCore.h"

#include "impl/Log.h"

namespace {

constexpr unsigned short kUpstream = 0x8000;

unsigned short numbered(unsigned int base, unsigned char index)
{
    return static_cast<unsigned short>(base + index);
}

}  // namespace

// Each function logs its index under its own name.
#define NRVK_INSTANCE_FUNCTION(name, id)                                                                               \
    unsigned short OmciManagedEntitiesCore::name(unsigned char index)                                                  \
    {                                                                                                                  \
        NRVK_LOG(6, "Index(%hhu)", index);                                                                             \
        return id;                                                                                                     \
    }

NRVK_INSTANCE_FUNCTION(instanceOltG, 0)
NRVK_INSTANCE_FUNCTION(instanceOntSystem, 0)
NRVK_INSTANCE_FUNCTION(instanceOntFeature, 0)
NRVK_INSTANCE_FUNCTION(instanceOnuG, 0)
NRVK_INSTANCE_FUNCTION(instanceOnu2G, 0)
NRVK_INSTANCE_FUNCTION(instanceOnuData, 0)
NRVK_INSTANCE_FUNCTION(instanceOnuRemoteDebug, 0)
NRVK_INSTANCE_FUNCTION(instanceEnhancedSecurityControl, 0)
NRVK_INSTANCE_FUNCTION(instancePowerShedding, 0)
NRVK_INSTANCE_FUNCTION(instanceOnuDynamicPowerManagement, 0)
NRVK_INSTANCE_FUNCTION(instanceIpHostConfigData, index)
NRVK_INSTANCE_FUNCTION(instanceVoipConfigData, index)
NRVK_INSTANCE_FUNCTION(instanceSoftwareImage, index)
NRVK_INSTANCE_FUNCTION(instanceTCont, numbered(0x100, index))
NRVK_INSTANCE_FUNCTION(instanceCardHolder, numbered(0x101, index))
NRVK_INSTANCE_FUNCTION(instanceCircuitPack, numbered(0x101, index))
NRVK_INSTANCE_FUNCTION(instancePptpEthernet, numbered(0x101, index))
NRVK_INSTANCE_FUNCTION(instanceUniG, numbered(0x101, index))
NRVK_INSTANCE_FUNCTION(instanceVEIP, numbered(0x201, index))
NRVK_INSTANCE_FUNCTION(instancePptpPotsUni, numbered(0x301, index))
NRVK_INSTANCE_FUNCTION(instanceVoipLineStatus, numbered(0x301, index))
NRVK_INSTANCE_FUNCTION(instanceAniG, numbered(0x401, index))
NRVK_INSTANCE_FUNCTION(instancePptpVideo, numbered(0x401, index))
NRVK_INSTANCE_FUNCTION(instancePptpVideoAni, numbered(0x501, index))
NRVK_INSTANCE_FUNCTION(instanceTWDMChannel, numbered(0x400, index))
NRVK_INSTANCE_FUNCTION(instanceTWDMSystemProfile, numbered(0x400, index))
NRVK_INSTANCE_FUNCTION(instanceTrafficScheduler, numbered(kUpstream, index))
NRVK_INSTANCE_FUNCTION(instancePriorityQueue, index < TOTAL_UPSTREAM_PRIORITY_QUEUES
                                                  ? numbered(kUpstream, index)
                                                  : static_cast<unsigned short>(index - TOTAL_UPSTREAM_PRIORITY_QUEUES))

unsigned short OmciManagedEntitiesCore::instanceFlexibleConfigurationStatusPortal(unsigned char index)
{
    NRVK_LOG(6, "Index(%hhu)", index);
    if (index < NUMBER_OF_ETHERNET_UNI_SUPPORTED) {
        return instancePptpEthernet(index);
    }
    return index == 2 ? instanceIpHostConfigData(index) : instanceAniG(0);
}
