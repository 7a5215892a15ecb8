#include "MockHardware.h"

MockHardware::MockHardware() = default;
MockHardware::~MockHardware() = default;
