#include "adapterExtended/OmciMeEthernetFrameExtendedPM64BitAdapterExtended.h"

#include "OmciMeEthernetFrameExtendedPM64BitIf.h"
#include "impl/ExtendedEthernetPm64BitRefresh.h"
#include "impl/Hardware.h"

namespace {

void refresh(unsigned short classId, unsigned short instance, const nrvk::ExtendedEthernetPm64BitRefresh& wanted)
{
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->refreshEthernetFrameCounters(classId, instance, wanted.statsAction, wanted.parentClass,
                                               wanted.uniInstance);
        hardware->refreshEthernetFrameCounters64(classId, instance, wanted.statsAction, wanted.parentClass,
                                                 wanted.veipInstance);
    }
}

}  // namespace

int OmciMeEthernetFrameExtendedPM64BitAdapterExtended::getAttribute(unsigned short instance,
                                                                    const attributeDefinition* definition,
                                                                    unsigned char* buffer, EnumOmciAction action) const
{
    if (const auto* pm = OmciMeEthernetFrameExtendedPM64BitIf::getManagedEntityInstance(instance)) {
        refresh(description().entity.classId, instance, nrvk::refreshOf(*pm, action));
    }
    return OmciMeEthernetFrameExtendedPM64BitAdapter::getAttribute(instance, definition, buffer, action);
}
