#include "impl/SoftwareImageDescriptions.h"

#include "OmciManagedEntitiesCore.h"

namespace nrvk {

void readSoftwareImageDescriptions()
{
    OmciManagedEntitiesCore core;
    core.setSoftwareVersionConfigurationFile("/opt/addons/etc/appinfo.ini");
    core.updateSoftwareImageMEs();
}

}  // namespace nrvk
