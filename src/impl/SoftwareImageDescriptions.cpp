#include "impl/SoftwareImageDescriptions.h"

#include "OmciManagedEntitiesCore.h"

namespace nrvk {

void readSoftwareImageDescriptions()
{
    OmciManagedEntitiesCore core(OmciManagedEntitiesCore::WithoutRecords{});
    core.setSoftwareVersionConfigurationFile("/opt/addons/etc/appinfo.ini");
    core.updateSoftwareImageMEs();
}

}  // namespace nrvk
