#ifndef SIMULATOR_PM_TRAFFIC_MODEL_H
#define SIMULATOR_PM_TRAFFIC_MODEL_H

#include <chrono>

#include "pm/PmSources.h"

/// What a source has counted after so much traffic, from 0. The same for the same source and time, always; frames,
/// their sizes and octets fit together.
counters::Values trafficUntil(const PmSource& source, std::chrono::microseconds time);

#endif
