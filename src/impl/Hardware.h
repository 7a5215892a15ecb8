#ifndef NRVK_IMPL_HARDWARE_H
#define NRVK_IMPL_HARDWARE_H

#include "OmciHardwareIfc.h"
#include "OmciManagedEntityRegistrar.h"

namespace nrvk {

/// The hardware layer, asked for afresh at each use; null until the host has set it.
inline OmciHardwareIfc* hardware()
{
    return OmciManagedEntityRegistrar::getInstance()->getOmciHardwareIfc();
}

/// The same, with "Detected NULL pointer" at level 3 in the caller's name when there is none: the caller then skips its
/// call.
OmciHardwareIfc* hardwareOrLog(const char* function = __builtin_FUNCTION(), const char* file = __builtin_FILE(),
                               unsigned int line = __builtin_LINE());

}  // namespace nrvk

#endif
