#include "adapterExtended/PmAdapter.h"

#include "impl/Hardware.h"

namespace nrvk {

void announcePmInstance(unsigned short classId, unsigned short instance)
{
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        hardware->createPmInstance(classId, instance);
    }
}

void withdrawPmInstance(unsigned short classId, unsigned short instance)
{
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        hardware->deletePmInstance(classId, instance);
    }
}

}  // namespace nrvk
