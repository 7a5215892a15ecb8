#include "implExtended/PerformanceMonitoring.h"

#include <new>

#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "impl/Hardware.h"

namespace nrvk {

unsigned short enterIntoPicture(unsigned short classId, unsigned short instance)
{
    StartupConfigManagedEntity record;
    OmciManagedEntitiesCore(OmciManagedEntitiesCore::WithoutRecords{})
        .getDefaultConfigManagedEntity(classId, instance, record);
    OmciManagedEntityRegistrar::getInstance()->addManagedEntityInstance(record);
    return instance;
}

void lookUpDefaultConfig(unsigned short classId, unsigned short instance)
{
    try {
        StartupConfigManagedEntity record;
        OmciManagedEntitiesCore(OmciManagedEntitiesCore::WithoutRecords{})
            .getDefaultConfigManagedEntity(classId, instance, record);
    } catch (const std::bad_alloc&) {
        // Destructors look up: nothing may leave them, and nobody keeps the row.
        return;
    }
}

void refreshByAction(RefreshByAction operation, EnumOmciAction action, unsigned short instance)
{
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        (hardware->*operation)(action, instance);
    }
}

}  // namespace nrvk
