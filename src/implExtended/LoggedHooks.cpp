#include "implExtended/LoggedHooks.h"

#include "impl/Log.h"

namespace nrvk {

void HookLog::applyConfigurationToHardwareForSet(unsigned short instance)
{
    NRVK_LOG(6, "Managed Entity Instance(%hu)", instance);
}

void HookLog::eraseConfigurationFromHardware(unsigned short instance)
{
    NRVK_LOG(6, "Managed Entity Instance(%hu)", instance);
}

}  // namespace nrvk
