// What the host asks single entities for.
#include "IpHostAccess.h"
#include "MapperServiceProfileAccess.h"
#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeMapperServiceProfile802_1PIf.h"
#include "SoftwareDownloadAccess.h"
#include "control/CallTable.h"

using calls::callOf;

namespace {
/// The entity of that instance; BadRequest when there is none.
template <typename If>
If& entityOf(unsigned short instance)
{
    If* managedEntity = If::getManagedEntityInstance(instance);
    if (managedEntity == nullptr) {
        throw BadRequest("there is no instance " + std::to_string(instance));
    }
    return *managedEntity;
}

void layer2Provisioning(unsigned short instance)
{
    nrvk::layer2Provisioning(entityOf<OmciMeIpHostConfigDataIf>(instance));
}

unsigned short getOldInterworkingTpForPbit(unsigned short instance, unsigned short pbit)
{
    return nrvk::getOldInterworkingTpForPbit(entityOf<OmciMeMapperServiceProfile802_1PIf>(instance), pbit);
}
}  // namespace

void CallTable::addEntityCalls()
{
    m_Calls["layer2Provisioning"] = callOf(&layer2Provisioning);
    m_Calls["getOldInterworkingTpForPbit"] = callOf(&getOldInterworkingTpForPbit);
    m_Calls["updateSoftwareDownloadStatus"] = callOf(&nrvk::updateSoftwareDownloadStatus);
    m_Calls["getSoftwareDownloadStatus"] = callOf(&nrvk::getSoftwareDownloadStatus);
    m_Calls["updateDownloadStartedFlag"] = callOf(&nrvk::updateDownloadStartedFlag);
}
