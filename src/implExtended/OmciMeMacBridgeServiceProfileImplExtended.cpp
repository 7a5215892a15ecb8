#include "implExtended/OmciMeMacBridgeServiceProfileImplExtended.h"

#include "OmciMeDot1agCFMStackIf.h"
#include "impl/Log.h"

int OmciMeMacBridgeServiceProfileImplExtended::createOmciMeInstance(unsigned short instance)
{
    NRVK_LOG(6, "Instance(%hu)", instance);
    if (OmciMeDot1agCFMStackIf::createManagedEntityInstance(instance, true) == nullptr) {
        NRVK_LOG(3, "Failed to create instance(%hu)", instance);
        return -1;
    }
    return 0;
}

int OmciMeMacBridgeServiceProfileImplExtended::deleteOmciMeInstance(unsigned short instance)
{
    NRVK_LOG(6, "Instance(%hu)", instance);
    if (!OmciMeDot1agCFMStackIf::deleteManagedEntityInstance(instance, true)) {
        NRVK_LOG(3, "Failed to delete instance(%hu)", instance);
        return -1;
    }
    return 0;
}
