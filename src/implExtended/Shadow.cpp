#include "implExtended/Shadow.h"

#include "impl/Log.h"

namespace nrvk {

OmciHardwareIfc* hardwareIfChanged(bool changed)
{
    if (!changed) {
        NRVK_LOG(7, "RPC call is not required ");
        return nullptr;
    }
    return hardwareOrLog("applyConfigurationToHardwareForSet");
}

}  // namespace nrvk
