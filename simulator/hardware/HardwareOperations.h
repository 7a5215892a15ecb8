#ifndef SIMULATOR_HARDWARE_HARDWARE_OPERATIONS_H
#define SIMULATOR_HARDWARE_HARDWARE_OPERATIONS_H

#include <string>

/// Whether OmciHardwareIfc has an operation of that name.
bool isHardwareOperation(const std::string& name);

#endif
