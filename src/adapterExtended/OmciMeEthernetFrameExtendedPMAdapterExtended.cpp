#include "adapterExtended/OmciMeEthernetFrameExtendedPMAdapterExtended.h"

#include "OmciMeEthernetFrameExtendedPMIf.h"
#include "adapterExtended/PmRefresh.h"

int OmciMeEthernetFrameExtendedPMAdapterExtended::getAttribute(unsigned short instance,
                                                               const attributeDefinition* definition,
                                                               unsigned char* buffer, EnumOmciAction action) const
{
    // Deliberate: hardware layers count on being asked once more for an instance that is there.
    if (OmciMeEthernetFrameExtendedPMIf::getManagedEntityInstance(instance) != nullptr) {
        nrvk::refreshEthernetPm(description().entity.classId, instance, action);
    }
    nrvk::refreshEthernetPm(description().entity.classId, instance, action);
    return OmciMeEthernetFrameExtendedPMAdapter::getAttribute(instance, definition, buffer, action);
}
