#include "implExtended/OmciMeFecPMHistoryDataImplExtended.h"

#include "impl/Hardware.h"

int OmciMeFecPMHistoryDataImplExtended::eraseConfigurationFromHardware()
{
    constexpr unsigned int resetMode = 3;
    RegisteredPm::eraseConfigurationFromHardware();
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->resetFecCounters(m_Description.classId, resetMode);
    }
    return 0;
}
