#include "impl/Hardware.h"

#include "impl/Log.h"

namespace nrvk {

OmciHardwareIfc* hardwareOrLog(const char* function, const char* file, unsigned int line)
{
    OmciHardwareIfc* found = hardware();
    if (found == nullptr) {
        logger().writeToLog(0, function, file, line, 3, "Detected NULL pointer");
    }
    return found;
}

}  // namespace nrvk
